#include "app/modules/settings_module.h"

#include <utility>

namespace vk {

SettingsModule::SettingsModule(Host& host, LibraryModule& library, InputModule& input,
                               PlaybackModule& playback)
    : Module(host.modules), host_(host), library_(library), remote_(input.remote),
      playback_(playback) {
    library_.onProgress = [this] {
        if (screen_) screen_->Draw();
    };
}

void SettingsModule::Load() {
    if (screen_) return;
    screen_ = new settings(host_.controls, ShellNeeds(), LearningNeeds(), host_.modules.Pages(),
                           &host_.window);
    screen_->shell().FirstRunDue = !host_.state.Setup;
    screen_->AddTo(host_.screens);
}

bool SettingsModule::Remove() {
    if (host_.dialogs.Active()) return false;
    if (!screen_) return true;
    screen_->RemoveFrom(host_.screens);
    screen_->HidePage();
    screen_->deleteLater(); // it may be on the stack itself, as the first run ends
    screen_ = nullptr;
    return true;
}

SettingsShell::Needs SettingsModule::ShellNeeds() {
    return {.base = host_.base,
            .loading = host_.background,
            .skin = host_.skin,
            .keys = host_.keys,
            .remoteKeys = host_.remoteKeys,
            .extensions = library_.extensions,
            .catalogue = library_.updates,
            .desktop = host_.ports.machine.desktop,
            .ways = {.finishStart = finishStart,
                     .reloadScreens = reloadScreens,
                     .askPlayer =
                         [this] {
                             if (playback_.winamp) playback_.winamp->WinAMP_GetStatus();
                         },
                     .exitApplication = [this] { host_.quit(false); },
                     .resize = resize},
            .receiver = ReceiverNeeds()};
}

FirstReceiver::Needs SettingsModule::ReceiverNeeds() {
    return {.base = host_.base,
            .codes = host_.remoteKeys,
            .open = [this] { return remote_.InitRemote(); },
            .listen =
                [this](FirstReceiver::Listener listener) {
                    remote_.learn = listener ? "learn" : "";
                    remote_.firstLook = std::move(listener);
                },
            .search = {.clock = host_.base.clock,
                       .ports = host_.ports.tuners.serialList,
                       .serial = host_.ports.remote.serial,
                       .uuirt = host_.ports.remote.uuirt}};
}

RemoteLearning::Needs SettingsModule::LearningNeeds() {
    return {.base = host_.base,
            .beeper = host_.ports.sound.beeper,
            .codes = host_.remoteKeys,
            .initRemote = [this] { return remote_.InitRemote(); },
            .ready = [this] { return remote_.Ready(); },
            .collect = [this](bool on) { remote_.learn = on ? "learn" : ""; },
            .setInterval = [this](float seconds) { remote_.learnInterval = seconds; },
            .ports = ListSerialPorts};
}

} // namespace vk
