// The mixer on Windows' own.
#pragma once

#include "platform/mixer.h"

#include <memory>

namespace vk {

/// Device 0, looked for again every few seconds while it is gone. Its numbers, structures and calls
/// are those of mmsystem.h.
class WinmmMixer : public Mixer {
  public:
    WinmmMixer();
    ~WinmmMixer() override;
    WinmmMixer(const WinmmMixer&) = delete;
    WinmmMixer& operator=(const WinmmMixer&) = delete;

    bool Open() override;
    unsigned Session() const override;
    bool GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) override;
    std::int32_t GetControlDetails(const MixerControl& control) const override;
    void SetControlDetails(const MixerControl& control, std::int32_t value) override;

  private:
    struct Handle;
    void Look() const;
    /// Gives the card up when a call's result says that it is gone.
    void Check(unsigned result) const;

    // Asking a card can show that it has gone.
    mutable std::unique_ptr<Handle> handle_; ///< null while there is no card
    mutable unsigned session_ = 0;
    mutable std::uint64_t lookedAt_ = 0; ///< milliseconds of the system's uptime
};

} // namespace vk
