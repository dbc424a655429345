// The FM tuner as a source of the audio player.
#pragma once

#include "library/lists/presets.h"
#include "platform/sound_route.h"
#include "playback/audio/tuner_source.h"
#include "tuners/fm/fm_tuner.h"

#include <string>
#include <vector>

namespace vk {

/// The presets are its list; the tuner is worked by steps and seeks.
class FMSource : public TunerSource {
  public:
    /// Both outlive this object.
    FMSource(const SourceContext& context, FMTuner& tuner, SoundRoute& route);
    ~FMSource() override;

    bool CanPlay() override;
    void LeaveScreen() override { Save(); }
    void Save() override;
    void runok() override;
    void MoveAhead() override { tuner_.ToggleSeek(SeekUp); }
    void MoveBack() override { tuner_.ToggleSeek(SeekDown); }
    void ShortPress(bool ahead) override;
    void DoFF() override { tuner_.FineTuneUp(); }
    void DoRW() override { tuner_.FineTuneDown(); }
    void Held(bool ahead) override;
    void DoPlay() override { runok(); }
    void DoPause() override {}
    void Tick() override { tuner_.Tick(); }
    void EverySecond() override;
    void UpdateScreen() override;
    Favorite SelectedFavorite() override;
    void FavoriteAdded() override { LoadRows(); }
    NowPlaying Now() override;

  private:
    Waited Start() override;
    bool PowerDown() override;
    void LoadRows() override;
    double SavedFrequency();
    std::string Station() const;
    const Preset* Tuned() const;
    std::string Picture() const;

    FMTuner& tuner_;
    SoundRoute& route_;
    std::vector<Preset> presets_;
    double pictured_ = 0; ///< the frequency whose picture is shown; 0: none
};

} // namespace vk
