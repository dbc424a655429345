// What the tuners have in common: how they take over, how their line of the sound card is silent
// meanwhile, and how they let go.
#pragma once

#include "playback/audio/source_context.h"

#include <cstdint>
#include <string>

namespace vk {

/// What is said where there is no tuner, or one that does not answer.
inline constexpr const char* NoRadio = "The radio is not available.";

/// In what the tuners differ.
struct TunerKind {
    PlayModeValue mode;
    std::int32_t Settings::*audioInput; ///< the line of the sound card, see `LineMute`
    const char* waitText;               ///< shown while it starts
    /// It has channels, which have to be known first: it takes its mode when it has started (what
    /// is saved before then is the old source's), and plays by itself. One without is tuned by
    /// steps, at first as its list is loaded.
    bool hasChannels;
};

extern const TunerKind FMKind;
extern const TunerKind XMKind;

class TunerSource : public PlayerSource {
  public:
    TunerSource(const SourceContext& context, const TunerKind& kind) : c_(context), kind_(kind) {}

    bool SwitchTo() final;
    void Enter() final { Begin(false); }
    void EnterAgain() final { c_.shuffle.ShowNone(); }
    void LoadPlaylist() final;
    void GiveWay() final;
    void Stop() final;
    void Suspend() final { GiveWay(); }
    void Resume() final { Enter(); }
    bool RemembersChoice() const final { return kind_.hasChannels; }
    bool WheelSteps() const final { return !kind_.hasChannels; }
    std::string MediaTypeIcon() const final { return "radio.gif"; }

  protected:
    /// Makes it ready to play: its channels are known then. Waits by the pump, and comes back early
    /// when that is ended; `TimedOut` when the tuner does not answer.
    virtual Waited Start() = 0;
    /// False when it is not silent yet, and puts its line back by itself when it is.
    virtual bool PowerDown() = 0;
    /// Fills the list; one with channels begins to play what is asked for.
    virtual void LoadRows() = 0;
    /// The line of the sound card.
    std::int32_t Input() const { return c_.base.settings.values.*kind_.audioInput; }

    const SourceContext c_;

  private:
    void TakeMode();
    void Begin(bool switches);
    Waited StartShown();
    std::string OwnTitle() const;
    void ShowName(const std::string& title);
    void StartPlaying();

    const TunerKind& kind_;
    bool playing_ = false; ///< it has been started, and has not given way since
};

} // namespace vk
