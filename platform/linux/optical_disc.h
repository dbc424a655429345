// The disc in an optical drive, as the drive itself tells (linux/cdrom.h).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vk {

/// The system's calls on a device; tests answer them.
struct OpticalCalls {
    /// Opens without waiting for a disc; negative when that fails.
    std::function<int(const std::string& device)> open;
    /// ioctl(2).
    std::function<int(int handle, unsigned long request, void* argument)> control;
};
OpticalCalls SystemOpticalCalls();

/// True when there is a disc that can be read; the drive answers from its own memory.
bool HoldsDisc(const OpticalCalls& calls, const std::string& device);
/// True when the drive says that it is empty; false as long as it says nothing.
bool IsEmptyDrive(const OpticalCalls& calls, const std::string& device);

/// The table of contents of a disc with sound on it.
struct AudioDisc {
    std::vector<int>
        tracks; ///< the numbers of those that are sound, of 1 to 99; empty: no such disc
    std::int32_t serial = 0; ///< told from where the tracks begin, as such discs have no other
};
AudioDisc ReadAudioDisc(const OpticalCalls& calls, const std::string& device);

} // namespace vk
