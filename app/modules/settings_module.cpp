#include "app/modules/settings_module.h"

namespace vk {

SettingsModule::SettingsModule(Host& host, LibraryModule& library, InputModule& input,
                               PlaybackModule& playback)
    : Module(host.modules), host_(host), library_(library), remote_(input.remote),
      playback_(playback) {
    library_.onProgress = [this] {
        if (screen_) screen_->ShowTexts();
    };
}

void SettingsModule::Load() {
    if (screen_) return;
    screen_ = new settings(host_.controls, ShellNeeds(), &host_.window);
    screen_->shell().FirstRunDue = !host_.state.Setup;
    host_.screens.Add("settings", *screen_);
    LoadPages();
}

void SettingsModule::LoadPages() {
    keyboardPage_ = std::make_unique<settingsKeyboard>(
        LearningPage::Needs{host_.controls, host_.screens, host_.keys, "settingsKeyboard"},
        KeyboardLearning::Needs{host_.settings, host_.report, host_.base.clock, host_.keys},
        &host_.window);
    remotePage_ = std::make_unique<settingsRemote>(
        LearningPage::Needs{host_.controls, host_.screens, host_.keys, "settingsRemote"},
        LearningNeeds(), &host_.window);
    host_.screens.Add("settingsKeyboard", *keyboardPage_);
    host_.screens.Add("settingsRemote", *remotePage_);
}

bool SettingsModule::Remove() {
    if (host_.dialogs.Active()) return false;
    if (!screen_) return true;
    host_.screens.Remove("settings");
    screen_->Hide();
    screen_->deleteLater(); // it may be on the stack itself, as the first run ends
    screen_ = nullptr;
    // No page is on the stack: it would be in front, or have a dialog open.
    host_.screens.Remove("settingsKeyboard");
    host_.screens.Remove("settingsRemote");
    keyboardPage_.reset();
    remotePage_.reset();
    return true;
}

SettingsShell::Needs SettingsModule::ShellNeeds() {
    return {.state = host_.state,
            .settings = host_.settings,
            .report = host_.report,
            .dialogs = host_.dialogs,
            .clock = host_.base.clock,
            .locale = host_.base.locale,
            .screens = host_.screens,
            .window = host_.base.window,
            .loading = host_.background,
            .skin = host_.skin,
            .keys = host_.keys,
            .remoteKeys = host_.remoteKeys,
            .extensions = library_.extensions,
            .finishStart = finishStart,
            .reloadScreens = reloadScreens,
            .askPlayer =
                [this] {
                    if (playback_.winamp) playback_.winamp->WinAMP_GetStatus();
                },
            .catalogue = library_.updates,
            .exitApplication = [this] { host_.quit(false); }};
}

RemoteLearning::Needs SettingsModule::LearningNeeds() {
    return {.settings = host_.settings,
            .report = host_.report,
            .dialogs = host_.dialogs,
            .clock = host_.base.clock,
            .beeper = host_.ports.sound.beeper,
            .codes = host_.remoteKeys,
            .initRemote = [this] { return remote_.InitRemote(); },
            .ready = [this] { return remote_.Ready(); },
            .collect = [this](bool on) { remote_.learn = on ? "learn" : ""; },
            .setInterval = [this](float seconds) { remote_.learnInterval = seconds; }};
}

} // namespace vk
