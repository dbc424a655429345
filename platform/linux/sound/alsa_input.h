// Sound from the input, on ALSA.
#pragma once

#include "platform/wave_input.h"

#include <atomic>
#include <string>
#include <thread>

struct _snd_pcm; // NOLINT(bugprone-reserved-identifier): the library's own

namespace vk {

class AlsaInput : public WaveInput {
  public:
    /// `device` is ALSA's name of the recording device.
    explicit AlsaInput(std::string device = "default") : device_(std::move(device)) {}
    ~AlsaInput() override { AlsaInput::Stop(); }
    AlsaInput(const AlsaInput&) = delete;
    AlsaInput& operator=(const AlsaInput&) = delete;

    bool Start(OnBuffer onBuffer) override;
    void Stop() override;
    bool Running() const override { return running_; }

  private:
    void Record(_snd_pcm* pcm, const OnBuffer& onBuffer);

    std::string device_;
    std::atomic<bool> stop_ = false;
    std::atomic<bool> running_ = false; ///< the thread ends by itself with its device
    std::thread thread_;
};

} // namespace vk
