// Playback: the player process's remote control, the sound card, the player screens.
#pragma once

#include "app/modules/library_module.h"
#include "platform/foreign_windows.h"
#include "playback/audio_state.h"
#include "playback/c_winamp.h"
#include "playback/loudness.h"
#include "playback/player_watch.h"
#include "playback/screen/playmp3.h"
#include "playback/transport.h"
#include "playback/video_state.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vk {

class PlaybackModule : public Module {
  public:
    PlaybackModule(Host& host, LibraryModule& library);
    ~PlaybackModule() override;

    std::vector<LoadStep> Steps() override;
    std::vector<Page> Pages() override;
    void Unload() override;
    void IgnitionOff() override;
    void IgnitionOn() override;
    void Supervise() override;
    void SessionEnds() override { host_.LeaveScreen("playmp3"); }
    void Close(bool osShutdown) override;

    /// What plays when the machine goes to sleep, before the devices sleep; and when these are
    /// back.
    void Sleep();
    void Wake();
    /// Saves what plays, whichever screen is in front.
    void SaveAudioData();
    /// The one object for the loudness, made by the first screen that needs it.
    Loudness& TheLoudness();
    /// Whether the source of that `PlayMode` is there.
    bool HasSource(std::int32_t mode) const { return Source(mode) != nullptr; }

    /// What plays that `PlayMode`, null without one or without the player's screen.
    PlayerSource* Source(std::int32_t mode) const {
        return screen_ ? screen_->player().sources().Find(mode) : nullptr;
    }

    AudioState audio;
    VideoState video;
    std::unique_ptr<cWinamp> winamp; ///< made by the start
    TransportLink transport;         ///< of whoever plays
    std::function<void()> loadGPS;   ///< shows the map; set by who has it
    SourceMakers sources; ///< the subsystem of a source adds its own before the screens are made

  private:
    void Load();
    AudioPlayer::Needs Needs();
    ForeignWindows* TheWindows();
    std::vector<CatalogueRow> Query(const std::string& sql);
    void SoundCardChanged(bool present);

    Host& host_;
    LibraryModule& library_;
    std::unique_ptr<cVolume> volume_;
    std::unique_ptr<Loudness> loudness_;
    std::unique_ptr<ForeignWindows> windows_; ///< those of the visualisation and the player
    std::unique_ptr<playmp3> screen_;
    std::optional<PlayerWatch> watch_;
    bool closed_ = false;
};

} // namespace vk
