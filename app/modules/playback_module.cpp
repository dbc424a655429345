#include "app/modules/playback_module.h"

#include "platform/paths.h"

namespace vk {

PlaybackModule::PlaybackModule(Host& host, LibraryModule& library, NavigationModule& navigation)
    : Module(host.modules), host_(host), library_(library), navigation_(navigation) {
    host_.ports.sound.listener = {
        .changed = [this](bool present) { SoundCardChanged(present); },
        .log = [this](const std::string& text) { host_.log.WriteDebugLog(text); }};
}

PlaybackModule::~PlaybackModule() {
    host_.ports.sound.listener = {};
}

std::vector<LoadStep> PlaybackModule::Steps() {
    return {{{30, 30}, "Loading Movie Player", "Reloading Movie Player"},
            {{40, 40}, "Loading Media Player", "Reloading Media Player", [this] { Load(); }}};
}

void PlaybackModule::Load() {
    screen_ = std::make_unique<playmp3>(host_.controls, Needs(), &host_.window);
    host_.screens.Add("playmp3", *screen_);
}

void PlaybackModule::Unload() {
    if (screen_ && !closed_) screen_->player().Form_Unload(false);
    host_.screens.Remove("playmp3");
    screen_.reset();
}

void PlaybackModule::Close(bool osShutdown) {
    closed_ = true;
    if (screen_) screen_->player().Form_Unload(osShutdown);
}

cVolume& PlaybackModule::Volume() {
    if (!volume_)
        volume_ = std::make_unique<cVolume>(cVolume::Needs{
            host_.ports.sound.mixer, host_.ports.sound.input, host_.dialogs, host_.report});
    return *volume_;
}

void PlaybackModule::SoundCardChanged(bool present) {
    host_.log.WriteDebugLog(present ? "The sound card is there now" : "There is no sound card now");
    if (present && screen_) screen_->player().SoundCardCame();
}

AudioPlayer::Needs PlaybackModule::Needs() {
    return {.audio = audio,
            .browser = library_.browser,
            .app = host_.state,
            .winamp = *winamp,
            .settings = host_.settings,
            .keys = host_.keys,
            .clock = host_.base.clock,
            .locale = host_.base.locale,
            .volumes = host_.base.volumes,
            .window = host_.base.window,
            .screens = host_.screens,
            .log = host_.log,
            .report = host_.report,
            .volume = Volume(),
            .tagOf = [this](const std::string& path) { return library_.tags.GetDBTag(path); },
            .query = [this](const std::string& sql) { return Query(sql); },
            .checkDaylight = [this] { host_.daylight.Check(); },
            .loadGPS = [this] { navigation_.Show(); }};
}

std::vector<CatalogueRow> PlaybackModule::Query(const std::string& sql) {
    std::vector<CatalogueRow> rows;
    for (const CatalogueFile& file : library_.db.Files(sql))
        rows.push_back(
            {JoinPath(host_.settings.values.MediaDir, file.path), file.artist, file.title});
    return rows;
}

} // namespace vk
