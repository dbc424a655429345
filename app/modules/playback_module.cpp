#include "app/modules/playback_module.h"

#include "platform/paths.h"
#include "playback/audio/file_source.h"
#include "settings/visuals_page.h"

namespace vk {

PlaybackModule::PlaybackModule(Host& host, LibraryModule& library)
    : Module(host.modules), host_(host), library_(library) {
    host_.ports.sound.listener = {
        .changed = [this](bool present) { SoundCardChanged(present); },
        .log = [this](const std::string& text) { host_.log.WriteDebugLog(text); }};
}

PlaybackModule::~PlaybackModule() {
    host_.ports.sound.listener = {};
}

std::vector<LoadStep> PlaybackModule::Steps() {
    return {{{40, 40}, "Loading Media Player", "Reloading Media Player", [this] { Load(); }}};
}

void PlaybackModule::Load() {
    screen_ = std::make_unique<playmp3>(host_.controls, Needs(), &host_.window);
    host_.screens.Add("playmp3", screen_->player(), *screen_);
    transport.Connect(&screen_->player());
}

void PlaybackModule::Unload() {
    if (screen_ && !closed_) screen_->player().Form_Unload(false);
    host_.screens.Remove("playmp3");
    transport.Connect(nullptr);
    screen_.reset();
}

// Not by the commands: neither a list that is read nor a question may hold the ignition up.
void PlaybackModule::IgnitionOff() {
    if (!audio.bPaused) transport.DoPause();
}

void PlaybackModule::IgnitionOn() {
    if (audio.bPaused) transport.DoPause();
}

void PlaybackModule::Sleep() {
    if (screen_) screen_->player().Suspend();
}

void PlaybackModule::SaveAudioData() {
    if (screen_) screen_->player().SaveAudioData();
}

void PlaybackModule::Wake() {
    if (screen_) screen_->player().Resume();
}

void PlaybackModule::Supervise() {
    if (!winamp || !host_.state.WinampWatched) return;
    if (!watch_)
        watch_.emplace(
            PlayerWatch::Needs{host_.base, host_.ports.sound.player, *winamp, transport});
    watch_->Look();
}

void PlaybackModule::Close(bool osShutdown) {
    closed_ = true;
    if (screen_) screen_->player().Form_Unload(osShutdown);
}

Loudness& PlaybackModule::TheLoudness() {
    if (loudness_) return *loudness_;
    volume_ = std::make_unique<cVolume>(cVolume::Needs{
        host_.ports.sound.mixer, host_.ports.sound.input, host_.dialogs, host_.report});
    loudness_ = std::make_unique<Loudness>(host_.base, *volume_);
    return *loudness_;
}

void PlaybackModule::SoundCardChanged(bool present) {
    host_.log.WriteDebugLog(present ? "The sound card is there now" : "There is no sound card now");
    if (present && loudness_) loudness_->CardCame();
}

AudioPlayer::Needs PlaybackModule::Needs() {
    sources[PlayAudio] = AudioFiles(*winamp, [this](const std::string& sql) { return Query(sql); });
    return {.base = host_.base,
            .audio = audio,
            .browser = library_.browser,
            .winamp = *winamp,
            .loudness = TheLoudness(),
            .keys = host_.keys,
            .sources = sources,
            .tagOf = [this](const std::string& path) { return library_.tags.GetDBTag(path); },
            .checkDaylight = [this] { host_.daylight.Check(); },
            .loadGPS =
                [this] {
                    if (loadGPS) loadGPS();
                },
            .vis = {TheWindows(), &host_.hooks, [this] { return host_.dialogs.Active(); }}};
}

ForeignWindows* PlaybackModule::TheWindows() {
    if (!windows_ && host_.ports.screen.foreignWindows)
        windows_ = host_.ports.screen.foreignWindows();
    return windows_.get();
}

std::vector<Page> PlaybackModule::Pages() {
    return {VisualsPage({.base = host_.base,
                         .winamp = [this] { return winamp.get(); },
                         .transport = transport,
                         .windows = TheWindows()})};
}

std::vector<CatalogueRow> PlaybackModule::Query(const std::string& sql) {
    std::vector<CatalogueRow> rows;
    for (const CatalogueFile& file : library_.db.Files(sql))
        rows.push_back(
            {JoinPath(host_.settings.values.MediaDir, file.path), file.artist, file.title});
    return rows;
}

} // namespace vk
