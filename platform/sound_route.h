// Sound from a recording device straight to the speakers: for tuners that are sound devices of
// their own.
#pragma once

#include <string>
#include <vector>

namespace vk {

struct CaptureDevice {
    std::string id;   ///< what `SoundRoute::Start` takes, the same after the next start
    std::string name; ///< for the user
};

class SoundRoute {
  public:
    virtual ~SoundRoute() = default;
    /// The recording devices that are there now.
    virtual std::vector<CaptureDevice> Devices() = 0;
    /// Plays what comes from `device` until `Stop`, or until the device goes. It ends another
    /// route. What fails is seen by `Running` soon after.
    virtual void Start(const std::string& device) = 0;
    virtual void Stop() = 0;
    virtual bool Running() const = 0;
};

} // namespace vk
