// Sound from a recording device to the speakers, on ALSA.
#pragma once

#include "platform/sound_route.h"

#include <atomic>
#include <string>
#include <thread>

namespace vk {

/// Devices are opened, read and written on a thread of its own.
class AlsaRoute : public SoundRoute {
  public:
    /// `output` is ALSA's name of the device that plays.
    explicit AlsaRoute(std::string output = "default") : output_(std::move(output)) {}
    ~AlsaRoute() override { AlsaRoute::Stop(); }
    AlsaRoute(const AlsaRoute&) = delete;
    AlsaRoute& operator=(const AlsaRoute&) = delete;

    std::vector<CaptureDevice> Devices() override;
    void Start(const std::string& device) override;
    void Stop() override;
    bool Running() const override { return running_; }

  private:
    void Run(const std::string& device);

    std::string output_;
    std::atomic<bool> stop_ = false;
    std::atomic<bool> running_ = false;
    std::thread thread_;
};

} // namespace vk
