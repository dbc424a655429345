// Playback: the player process's remote control, the sound card, the player screens.
#pragma once

#include "app/modules/library_module.h"
#include "app/modules/navigation_module.h"
#include "playback/audio_state.h"
#include "playback/c_volume.h"
#include "playback/c_winamp.h"
#include "playback/screen/playmp3.h"
#include "playback/video_state.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

class PlaybackModule : public Module {
  public:
    PlaybackModule(Host& host, LibraryModule& library, NavigationModule& navigation);
    ~PlaybackModule() override;

    std::vector<LoadStep> Steps() override;
    void Unload() override;
    void SessionEnds() override { host_.LeaveScreen("playmp3"); }
    void Close(bool osShutdown) override;

    /// The one object for the sound card, made by the first screen that needs it.
    cVolume& Volume();
    /// Whether the source of that `PlayMode` is there.
    bool HasSource(std::int32_t mode) { return screen_ && screen_->player().HasSource(mode); }

    AudioState audio;
    VideoState video;
    std::unique_ptr<cWinamp> winamp; ///< made by the start

  private:
    void Load();
    AudioPlayer::Needs Needs();
    std::vector<CatalogueRow> Query(const std::string& sql);
    void SoundCardChanged(bool present);

    Host& host_;
    LibraryModule& library_;
    NavigationModule& navigation_;
    std::unique_ptr<cVolume> volume_;
    std::unique_ptr<playmp3> screen_;
    bool closed_ = false;
};

} // namespace vk
