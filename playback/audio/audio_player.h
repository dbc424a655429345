// The audio player screen's logic: entering and leaving it, and its operations, which go to the
// source in use.
#pragma once

#include "core/base.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "playback/audio/player_ticks.h"
#include "playback/transport.h"
#include "playback/visuals/visualisation.h"

#include <functional>
#include <string>

namespace vk {

/// Every operation logs what fails in it and leaves the screen as it is.
class AudioPlayer : public Transport {
  public:
    /// All of it outlives the player.
    struct Needs {
        Base& base;
        AudioState& audio;
        BrowserState& browser;
        cWinamp& winamp;
        Loudness& loudness;
        const KeyMap& keys;
        const SourceMakers& sources;
        TagOfFile tagOf;
        std::function<void()> checkDaylight = {}; ///< every tick: day or night skin
        std::function<void()> loadGPS = {};       ///< empty without a GPS screen
        VisPorts vis = {};
    };
    /// `list` and `view` are the screen's and outlive this object.
    AudioPlayer(Needs needs, ListModel& list, PlayerView& view);

    /// Entry with `PlayMode` already set by the caller.
    void ReShow();
    /// Entry from the media browser, which has set the list unless nothing was chosen.
    void ReDisplay();
    /// Saves the state of `mode`, of the present `PlayMode` when it is 0.
    void SaveAudioData(std::int32_t mode = PlayNone);
    /// The machine goes to sleep, and is back, whichever screen is in front.
    void Suspend();
    void Resume();
    void switchingform();
    /// Stops the source and goes back to the main menu; from a visualisation, only back from that.
    void doquit() override;
    /// Leaves for the media browser, unless a visualisation runs; the sound goes on.
    void Swap();
    /// The same for the list of programs (`TSextAppBtn`).
    void ShowApplications();
    /// The screen goes; `osShutdown` when the operating system closes it.
    void Form_Unload(bool osShutdown);

    void runok();
    void MoveAhead() override;
    void MoveBack() override;
    void MoveUp() { MoveList(&ListModel::MoveUp, "MoveUp"); }
    void MoveDown() { MoveList(&ListModel::MoveDown, "MoveDown"); }
    void PgUp() { MoveList(&ListModel::PageUp, "PgUp"); }
    void PgDn() { MoveList(&ListModel::PageDown, "PgDn"); }
    void VolUp() { n_.loudness.VolUp(); }
    void VolDown() { n_.loudness.VolDown(); }
    void domute() { n_.loudness.domute(); }
    void DoFF() override;
    void DoRW() override;
    void DoPlay() override;
    void DoPause() override;
    NowPlaying Now() override;
    bool NeedsPlayer() const override;
    void GoOn(std::int32_t track, std::int32_t seconds) override;
    void setshuffle();
    /// See `Visualisation`; `NextVis` tells the name.
    void DoVis();
    void NextVis();
    /// Goes to the next source in the rotation. Where that cannot play, the present one goes on.
    void TSRadio2MP3Btn_Click();
    /// See `Sources`.
    void AddToFavorites();
    /// Shows the GPS screen where there is one.
    void LoadGPS();
    /// Acts on a key, a decimal virtual-key code; true when it was used.
    bool Form_KeyDown(const std::string& code);
    /// The same for what any map gives a meaning.
    bool DoAction(const InputCode& code) override;
    /// True for a key that goes on while it is held, the next track at most twice a second.
    bool Repeats(const InputCode& key) const;
    /// The wheel: positive is up.
    void Wheel(int delta);
    /// A touch of the time label: the time gone or the time left.
    void TrackTimeLabel_Click();

    PlayerButtons& buttons() { return buttons_; }
    const Sources& sources() const { return sources_; }
    PlayerTicks& ticks() { return ticks_; }

  private:
    /// Runs an operation on the present source, and what follows a step of it soon.
    void Ask(const char* where, const std::function<void(PlayerSource&)>& operation);
    void Step(const char* where, void (PlayerSource::*step)());
    void LeaveFor(std::int16_t listMode);
    void KeepVolume();
    void MoveList(void (ListModel::*move)(), const char* where);
    void DoHeld(HeldAction action);
    bool DoUnderVis(const InputCode& code);
    void LeaveForVis();
    void ComeBackFromVis();
    void Hold(bool ahead);
    void Enter();
    void Ready();

    Needs n_;
    Base& base_;
    ListModel& list_;
    PlayerView& view_;
    TrackRows rows_;
    CoverArt cover_;
    ClockLine clockLine_;
    VolumeLabel volumeLabel_;
    Shuffle shuffle_;
    const SourceContext parts_;
    Sources sources_;
    PlayerButtons buttons_;
    PlayerTicks ticks_;
    Visualisation vis_;
    std::int64_t skippedMs_ = 0; ///< when a track was last skipped, of the clock's ticks
    bool bInPlayer = false;
};

} // namespace vk
