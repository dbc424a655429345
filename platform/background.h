// Stepping back behind the other programs of the machine.
#pragma once

namespace vk {

/// From now on this process takes the processors and the disk last, but is not starved by others
/// that keep them busy for minutes. For the start of a program: threads that run already may keep
/// what they have.
void WorkInBackground();

/// The same for the calling thread alone.
void WorkThreadInBackground();

} // namespace vk
