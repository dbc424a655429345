// The mixer on Windows' own.
#pragma once

#include "platform/mixer.h"

#include <memory>

namespace vk {

/// Device 0. Its numbers, structures and calls are those of mmsystem.h.
class WinmmMixer : public Mixer {
  public:
    WinmmMixer();
    ~WinmmMixer() override;
    WinmmMixer(const WinmmMixer&) = delete;
    WinmmMixer& operator=(const WinmmMixer&) = delete;

    bool Open() override;
    unsigned Session() const override { return session_; }
    bool GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) override;
    std::int32_t GetControlDetails(const MixerControl& control) const override;
    void SetControlDetails(const MixerControl& control, std::int32_t value) override;

  private:
    struct Handle;
    std::unique_ptr<Handle> handle_; ///< null while there is no card
    unsigned session_ = 0;
};

} // namespace vk
