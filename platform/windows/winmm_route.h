// Sound from a recording device to the speakers, on Windows' own.
#pragma once

#include "platform/sound_route.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace vk {

/// Devices are opened, read and written on a thread of its own.
class WinmmRoute : public SoundRoute {
  public:
    WinmmRoute() = default;
    ~WinmmRoute() override { Stop(); }
    WinmmRoute(const WinmmRoute&) = delete;
    WinmmRoute& operator=(const WinmmRoute&) = delete;

    /// A device is known by its name.
    std::vector<CaptureDevice> Devices() override;
    void Start(const std::string& device) override;
    void Stop() override;
    bool Running() const override { return running_; }

  private:
    void Run(const std::string& device);

    std::atomic<bool> stop_ = false;
    std::atomic<bool> running_ = false;
    std::thread thread_;
};

} // namespace vk
