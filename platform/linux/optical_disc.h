// The disc in an optical drive, as the drive itself tells (linux/cdrom.h).
#pragma once

#include "platform/linux/slow_answer.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
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

/// What the drive says of itself, from its own memory: CDS_DISC_OK and its kin; CDS_NO_INFO when it
/// cannot be opened.
int DriveStatus(const OpticalCalls& calls, const std::string& device);

/// A track that is sound. Sectors are 1/75 second; the first one after it is `end`.
struct AudioTrack {
    int number = 0; ///< 1 to 99
    int first = 0, end = 0;
};

/// The table of contents of a disc with sound on it; no tracks: no such disc, or it cannot be read.
struct AudioDisc {
    std::vector<AudioTrack> tracks;
    std::int32_t serial = 0; ///< told from where the tracks begin, as such discs have no other
};
AudioDisc ReadAudioDisc(const OpticalCalls& calls, const std::string& device);

/// How long a drive is waited for by who has others to serve: one that is well answers in a tenth
/// of that.
constexpr std::chrono::milliseconds DrivePatience{100};

/// Drives that are asked without being waited for: one that spins up, reads badly or is busy may
/// take half a minute to answer. Until then what it has said last counts.
class DiscDrives {
  public:
    explicit DiscDrives(OpticalCalls calls, std::chrono::milliseconds patience = DrivePatience)
        : calls_(std::move(calls)), patience_(patience) {}

    int Status(const std::string& device);
    AudioDisc Contents(const std::string& device);

  private:
    const OpticalCalls calls_;
    const std::chrono::milliseconds patience_;
    std::map<std::string, SlowAnswer<int>> status_;
    std::map<std::string, SlowAnswer<AudioDisc>> contents_;
};

} // namespace vk
