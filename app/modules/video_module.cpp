#include "app/modules/video_module.h"

#include <utility>

namespace vk {

std::vector<LoadStep> VideoModule::Steps() {
    return {{{30, 30}, "Loading Movie Player", "Reloading Movie Player", [this] { Load(); }}};
}

void VideoModule::Load() {
    screen_ = std::make_unique<playmovie>(host_.controls, Needs(), host_.keys, &host_.window);
    host_.screens.Add("playmovie", screen_->keys(), *screen_);
}

void VideoModule::Unload() {
    if (screen_ && !closed_) screen_->player().Form_Unload(false);
    host_.screens.Remove("playmovie");
    screen_.reset();
}

// A film that waits behind the browser or the map is closed when something else comes to the front.
void VideoModule::Supervise() {
    const FrontName& front = host_.screens.CurrentForm;
    if (screen_ && front != "playlists" && front != GPSName) screen_->player().Release();
}

// Not by the commands: neither a list that is read nor a question may hold the ignition up.
void VideoModule::IgnitionOff() {
    if (!screen_ || !screen_->player().films().Playing()) return;
    screen_->player().films().PauseIt();
    pausedByIgnition_ = true;
}

// What the user paused stays paused.
void VideoModule::IgnitionOn() {
    if (std::exchange(pausedByIgnition_, false) && screen_) screen_->player().films().UnPauseIt();
}

void VideoModule::Suspend() {
    if (screen_) screen_->player().films().Suspend();
}

void VideoModule::Resume() {
    if (screen_) screen_->player().films().Resume();
}

void VideoModule::Close(bool osShutdown) {
    closed_ = true;
    if (screen_) screen_->player().Form_Unload(osShutdown);
}

MoviePlayer::Needs VideoModule::Needs() {
    return {.base = host_.base,
            .video = playback_.video,
            .browser = library_.browser,
            .loudness = playback_.TheLoudness(),
            .saver = host_.ports.films.saver,
            .makePlayer = host_.ports.films.player,
            .probe = host_.ports.films.probe,
            .tagOf = [this](const std::string& path) { return library_.tags.GetDBTag(path); },
            .loadGPS = [this] { navigation_.Show(); },
            .checkDaylight = [this] { host_.daylight.Check(); }};
}

} // namespace vk
