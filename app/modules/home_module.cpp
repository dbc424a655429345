#include "app/modules/home_module.h"

#include "platform/own_process.h"

#include <string>
#include <utility>

namespace vk {

HomeModule::HomeModule(Host& host, const Rooms& rooms)
    : Module(host.modules), host_(host), rooms_(rooms) {
    rooms_.input.onPower = [this] { PowerKey(); };
}

std::vector<LoadStep> HomeModule::Steps() {
    return {{{10, 10}, "Loading Main Menu", "Reloading Main Menu", [this] { Load(); }}};
}

void HomeModule::Load() {
    screen_ = std::make_unique<velkorandum>(host_.controls, Needs(), &host_.window);
    host_.screens.Add(HomeScreen, screen_->menu(), *screen_);
    screen_->onFirstPaint = [this] {
        if (std::exchange(painted_, true)) return;
        host_.log.WriteDebugLog("Main menu painted " + std::to_string(OwnProcessAgeMs()) +
                                " ms after the start of the process");
    };
}

void HomeModule::Unload() {
    host_.screens.Remove(HomeScreen);
    screen_.reset();
}

MainMenu::Needs HomeModule::Needs() {
    return {.base = host_.base,
            .skin = host_.skin,
            .daylight = host_.daylight,
            .keys = host_.keys,
            .audio = rooms_.playback.audio,
            .video = rooms_.playback.video,
            .browser = rooms_.library.browser,
            .winamp = *rooms_.playback.winamp,
            .loudness = rooms_.playback.TheLoudness(),
            .doors = Doors()};
}

MainMenu::Doors HomeModule::Doors() {
    return {.openSettings =
                [this] {
                    rooms_.settings.Load();
                    host_.screens.Show("settings");
                },
            .unloadSettings = [this] { return rooms_.settings.Remove(); },
            .loadGPS = [this] { rooms_.navigation.Show(); },
            .exitApplication = [this] { host_.quit(false); },
            .powerAction = [this] { rooms_.vehicle.PowerAction(); },
            .setDimmer = [this](bool force) { rooms_.vehicle.SetDimmer(force); },
            .clearRemote = [this] { rooms_.input.remote.ClearBuff(); },
            .turnDevicesOff =
                [this](const std::function<void(const std::string&)>& say) {
                    rooms_.tuners.TurnOff(say);
                }};
}

void HomeModule::PowerKey() {
    if (screen_) screen_->menu().Exit(); // there is none in the first run
}

} // namespace vk
