// What this process knows of itself.
#pragma once

namespace vk {

/// Milliseconds since this process was started, to 10 ms.
long OwnProcessAgeMs();

} // namespace vk
