// The audio player screen's logic: entering and leaving it, its 100 ms timer, and its operations,
// which go to the source in use.
#pragma once

#include "core/app_state.h"
#include "core/debug_log.h"
#include "core/error_report.h"
#include "core/screens.h"
#include "core/settings.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "platform/clock.h"
#include "platform/locale_info.h"
#include "platform/volumes.h"
#include "platform/window_layer.h"
#include "playback/audio/clock_line.h"
#include "playback/audio/cover_art.h"
#include "playback/audio/file_source.h"
#include "playback/audio/held_buttons.h"
#include "playback/audio/line_mute.h"
#include "playback/audio/player_view.h"
#include "playback/audio/player_volume.h"
#include "playback/audio/track_rows.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Every operation logs what fails in it and leaves the screen as it is.
class AudioPlayer {
  public:
    struct Needs {
        AudioState& audio;
        BrowserState& browser;
        AppState& app;
        cWinamp& winamp;
        SettingsStore& settings;
        const KeyMap& keys;
        Clock& clock;
        const LocaleInfo& locale;
        const Volumes& volumes;
        WindowLayer& window;
        Screens& screens;
        const DebugLog& log;
        ErrorReport& report;
        cVolume& volume;
        TagOfFile tagOf;
        CatalogueQuery query = {};  ///< empty without a catalogue
        PlayerSource* fm = nullptr; ///< null without an FM tuner
        PlayerSource* xm = nullptr; ///< null without a satellite receiver
        /// Parts that may be missing. The logo's file of a satellite channel.
        std::function<std::string(const std::string& channel)> xmLogo = {};
        std::function<void()> checkDaylight = {}; ///< every tick: day or night skin
        std::function<void()> loadGPS = {};
    };
    /// `list` and `view` are the screen's and outlive this object.
    AudioPlayer(Needs needs, ListModel& list, PlayerView& view);

    /// Entry with `PlayMode` already set by the caller.
    void ReShow();
    /// Entry from the media browser, which has set the list unless nothing was chosen.
    void ReDisplay();
    void LoadPlaylist();
    /// Saves the state of `mode`, of the present `PlayMode` when it is 0.
    void SaveAudioData(std::int32_t mode = PlayNone);
    void switchingform();
    /// Stops the source and goes back to the main menu.
    void doquit();
    /// Leaves for the media browser; the sound goes on.
    void Swap();
    /// The screen goes; `osShutdown` when the operating system closes it.
    void Form_Unload(bool osShutdown);

    void runok();
    void MoveAhead();
    void MoveBack();
    void MoveUp();
    void MoveDown();
    void PgUp();
    void PgDn();
    void VolUp();
    void VolDown();
    void domute();
    /// A sound card has come, perhaps in place of another.
    void SoundCardCame() { volume_.CardCame(); }
    void DoFF();
    void DoRW();
    void DoPlay();
    void DoPause();
    void setshuffle();
    void UpdateScreen();
    void SetMediaTypeIcon();
    /// The picture of a track, station or channel, see `CoverArt`.
    void ShowCoverArt(const std::string& item) { cover_.ShowCoverArt(item); }

    /// Goes to the next source in the rotation. Where that cannot play, the present one goes on.
    void TSRadio2MP3Btn_Click();
    /// True when that `PlayMode` has something that plays it.
    bool HasSource(std::int32_t mode) { return Source(mode) != nullptr; }
    /// Shows on the change button the source that a press selects.
    void SetPlayerButton();
    /// Goes on with the list of the last run.
    void SwitchToAudio();
    void SwitchToFM();
    void SwitchToXM();
    /// Powers the FM tuner down, with its line muted meanwhile.
    void TurnOffRadio();
    /// The mute of a tuner's line, see `LineMute`; `input` is its `audio_input`.
    void MuteLine(std::int32_t input, bool remember) { lineMute_.MuteLine(input, remember); }
    void UnMuteLine(std::int32_t input) { lineMute_.UnMuteLine(input); }
    void RestoreMuteState(std::int32_t input) { lineMute_.RestoreMuteState(input); }
    /// Adds the selected entry of the source to its list of favourites, and says so for a moment.
    /// What is on a disc is not added.
    void AddToFavorites();
    /// The same for key and remote.
    void AddFavKBIR() { AddToFavorites(); }
    /// The same for the touch button, which is dead while a list is loaded.
    void TSAddFavBtn_Click();
    /// Acts on a key, a decimal virtual-key code; true when it was used.
    bool Form_KeyDown(const std::string& code);
    /// The same for what any map gives a meaning.
    bool DoAction(const InputCode& code);
    /// Shows the GPS screen where there is one.
    void LoadGPS();
    /// The wheel: positive is up.
    void Wheel(int delta);
    /// A touch of the time label: the time gone or the time left.
    void TrackTimeLabel_Click();

    /// A button or list strip is pressed, and let go again.
    void Press(HeldAction action);
    /// Let go outside of a button that waits for its hold, it was no click.
    void Release(bool inside = true);
    /// Brings the window to the front once a second for that many seconds.
    void BringToFront(int seconds) { pendingForeground_ += seconds; }
    /// Draws list and cover anew 2 seconds from now: what lay over them (a window that closes, a
    /// picture mode that changes) may go after the screen has been drawn.
    void RefreshLater() { refreshIn_ = RefreshTicks; }
    /// Tags of rows that a touch has moved onto the page, then the drawing.
    void ListMoved();

    /// The 100 ms tick.
    void Timer2_Timer();

  private:
    static constexpr int RefreshTicks = 20;

    PlayerSource* Source(std::int32_t mode);
    PlayerSource* Source() { return Source(n_.audio.PlayMode); }
    void WithSource(const char* where, const std::function<void(PlayerSource&)>& operation);
    void MoveList(void (ListModel::*move)(), const char* where);
    void Step(void (PlayerSource::*step)(), const char* where);
    void Enter();
    void Ready();
    void ShowShuffle();
    void DrawShuffle(bool on);
    void SilenceOtherSources();
    bool CanSwitchTo(std::int32_t mode);
    void SwitchTo(std::int32_t mode);
    void LeaveSource();
    void EnterTuner(std::int32_t mode);
    void ClearTrack();
    void StartTuner(PlayerSource& tuner, std::int32_t mode);
    void TakeXMList();
    void Tick();
    void ServeRefresh();
    void FirstTick();
    void ServeHeldButton();
    void LetGo();
    void DoHeld(HeldAction action);
    bool DiscIsGone() const;
    void KeepInFront();

    Needs n_;
    ListModel& list_;
    PlayerView& view_;
    TrackRows rows_;
    CoverArt cover_;
    ClockLine clockLine_;
    FileSource files_;
    PlayerVolume volume_;
    LineMute lineMute_;
    HeldButtons held_;
    std::unique_ptr<Timer> Timer2;
    std::string shownList_; ///< the list file that the rows come from
    int TickCount = 0;      ///< ticks since the last full second, 0 to 10
    int pendingForeground_ = 0;
    int refreshIn_ = 0; ///< ticks, 0: none is due
    bool bForceUpdate = false;
    bool bInPlayer = false;
    bool ticking_ = false;
};

} // namespace vk
