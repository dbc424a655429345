// The plug-ins of libVLC that outlive what loaded them.
#pragma once

namespace vk {

/// Before an instance of libVLC ends: those of its plug-ins that may not be unloaded with it stay.
void KeepPlugins();

} // namespace vk
