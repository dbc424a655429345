// Audio files as a source of the player: the list and the transport of the player process.
#pragma once

#include "playback/audio/position_clock.h"
#include "playback/audio/saved_state.h"
#include "playback/audio/source_context.h"
#include "playback/c_winamp.h"

#include <cstdint>
#include <string>

namespace vk {

class FileSource : public PlayerSource {
  public:
    /// `winamp` outlives this object; `query` is empty without a catalogue.
    FileSource(const SourceContext& context, cWinamp& winamp, CatalogueQuery query);

    bool CanPlay() override;
    bool SwitchTo() override;
    void Enter() override;
    void EnterAgain() override { c_.shuffle.Show(); }
    void LoadPlaylist() override;
    void LeaveScreen() override { position_.Forget(); }
    void GiveWay() override;
    void Stop() override;
    void Save() override;
    void Suspend() override;
    void Resume() override;
    bool IsGone() override;
    void runok() override;
    void MoveAhead() override;
    void MoveBack() override;
    void DoFF() override;
    void DoRW() override;
    void DoPlay() override;
    void DoPause() override;
    void EverySecond() override;
    void UpdateScreen() override;
    void ShowTrackTime() override;
    std::string MediaTypeIcon() const override;
    Favorite SelectedFavorite() override;
    NowPlaying Now() override;
    bool NeedsPlayer() const override { return started_; }
    void GoOn(std::int32_t track, std::int32_t seconds) override;

  private:
    void BeginList();
    bool ReadList();
    void TakeList(const TrackList& list);
    void HandOver(const TrackList& list);
    void Select(std::int32_t index);
    enum class Start { Plays, Refused, PlayerLost, Left };
    void StartPlaying();
    Start TryToPlay();
    Start FindPlayer();
    Start WaitForPlay();
    bool Playing(); ///< or paused
    void NotStarted(const std::string& notice);
    void Refuse();
    void StartAgain(std::int32_t selected);
    std::int32_t SeekToResume();
    void Command(std::int32_t id) { winamp_.WinAMP_SCM(id); }
    void SkipTo(std::int32_t command);
    void Unpause();
    void PauseAsleep();
    void StartedLate();
    void FollowTrack();
    void ShowPlaying(std::int32_t track);
    void ShowBitRate();
    void ShowStreamTitle();

    const SourceContext c_;
    AudioState& audio_;
    PlayerView& view_;
    cWinamp& winamp_;
    CatalogueQuery query_;
    PositionClock position_;
    SavedState saved_;
    std::string shownList_;  ///< the list file that the rows come from
    std::string handedOver_; ///< the list file as the player process gets it
    bool started_ = true;    ///< the player process has begun to play what it was told last
    bool bitRateKnown_ = true;
    bool suspended_ = false; ///< it played when the machine went to sleep
};

/// What makes the source of audio files, for `SourceMakers`.
SourceMaker AudioFiles(cWinamp& winamp, CatalogueQuery query);

} // namespace vk
