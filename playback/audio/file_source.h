// Audio files as a source of the player: the list and the transport of the player process.
#pragma once

#include "core/app_state.h"
#include "playback/audio/cover_art.h"
#include "playback/audio/player_source.h"
#include "playback/audio/player_view.h"
#include "playback/audio/position_clock.h"
#include "playback/audio/saved_state.h"
#include "playback/audio/track_rows.h"
#include "playback/audio_state.h"
#include "playback/c_winamp.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vk {

class FileSource : public PlayerSource {
  public:
    struct Needs {
        AudioState& audio;
        AppState& app;
        cWinamp& winamp;
        SettingsStore& settings;
        Clock& clock;
        const DebugLog& log;
        PlayerView& view;
        TrackRows& rows;
        CoverArt& cover;
        CatalogueQuery query;                           ///< empty without a catalogue
        std::function<void(const std::string&)> notice; ///< tells the user what went wrong
    };
    explicit FileSource(Needs needs);

    void LoadPlaylist() override;
    void UpdateScreen() override;
    void runok() override;
    void MoveAhead() override;
    void MoveBack() override;
    void ShortPress(bool ahead) override;
    void DoFF() override;
    void DoRW() override;
    void DoPlay() override;
    void DoPause() override;
    void Tick() override {}
    void EverySecond() override;
    void LeaveScreen() override { position_.Forget(); }
    void Save() override;
    void Stop() override;
    std::string MediaTypeIcon() const override;
    Favorite SelectedFavorite() override;

    /// Another source takes over: the sound stops, list and position stay to be resumed.
    void GiveWay();

    /// The time label anew.
    void ShowTrackTime();

  private:
    void BeginList();
    void ReadList();
    void HandOver(const TrackList& list);
    void Select(std::int32_t index);
    void StartPlaying();
    bool WaitForPlay();
    bool Playing(); ///< or paused
    void NotStarted(const std::string& notice);
    void StartAgain(std::int32_t selected);
    std::int32_t Resume();
    void Command(std::int32_t id) { n_.winamp.WinAMP_SCM(id); }
    void SkipTo(std::int32_t command);
    void Unpause();
    void StartedLate();
    void FollowTrack();
    void ShowPlaying(std::int32_t track);
    void ShowBitRate();

    Needs n_;
    PositionClock position_;
    SavedState saved_;
    std::string handedOver_; ///< the list file as the player process gets it
    bool started_ = true;    ///< the player process has begun to play what it was told last
    bool bitRateKnown_ = true;
};

} // namespace vk
