#include "app/modules/browser_module.h"

#include "library/channels/channel_file.h"

namespace vk {

std::vector<LoadStep> BrowserModule::Steps() {
    return {{{20, 20}, "Loading Media Browser", "Reloading Media Browser", [this] { Load(); }}};
}

void BrowserModule::Load() {
    if (host_.settings.values.xmpcr_enabled)
        LoadChannels(host_.settings.File(ChannelFileName), host_.base.clock.Now(), host_.report,
                     library_.channels);
    screen_ = std::make_unique<playlists>(playlists::Needs{host_.controls, Needs()}, &host_.window);
    host_.screens.Add(BrowserName, screen_->browser(), *screen_);
}

void BrowserModule::Unload() {
    host_.screens.Remove(BrowserName);
    screen_.reset();
}

void BrowserModule::Close(bool osShutdown) {
    if (screen_) screen_->browser().Form_Unload(osShutdown);
}

BrowserNeeds BrowserModule::Needs() {
    return {
        .base = host_.base,
        .state = library_.browser,
        .keys = host_.keys,
        .library = {library_.tags, library_.extensions, &library_.db, &library_.channels},
        .players = {.audio = playback_.audio,
                    .video = playback_.video,
                    .loudness = playback_.TheLoudness(),
                    .transport = playback_.transport,
                    .HasTuner = [this](std::int32_t mode) { return playback_.HasSource(mode); }},
        .programs = hosting_.Programs()};
}

} // namespace vk
