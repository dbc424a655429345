// Sound from the input, on Windows' own.
#pragma once

#include "platform/wave_input.h"

#include <memory>

namespace vk {

/// The wave mapper's device.
class WinmmInput : public WaveInput {
  public:
    WinmmInput();
    ~WinmmInput() override;
    WinmmInput(const WinmmInput&) = delete;
    WinmmInput& operator=(const WinmmInput&) = delete;

    bool Start(OnBuffer onBuffer) override;
    void Stop() override;
    bool Running() const override { return ring_ != nullptr; }

  private:
    class Ring;
    std::unique_ptr<Ring> ring_;
};

} // namespace vk
