#include "app/modules/vehicle_module.h"

#include "power/carrier_line.h"
#include "settings/vehicle_page.h"

#include <utility>

namespace vk {

VehicleModule::VehicleModule(Host& host, PlaybackModule& playback)
    : Module(host.modules), host_(host), playback_(playback),
      dimmer_(host.base, {host.ports.vehicle.gamma, host.ports.vehicle.backlight,
                          [this](bool dark) { pane_.SetDark(dark); }}),
      shutDown_(host.base, host.ports.vehicle.power, [this] { End(); }),
      events_(host.base, Sleepers()), ignition_(IgnitionNeeds()) {
    host_.daylight.setDimmer = [this](bool force) { SetDimmer(force); };
    host_.controls.toggleDim = [this] { SetDimmer(false); };
}

VehicleModule::~VehicleModule() {
    host_.daylight.setDimmer = {};
    host_.controls.toggleDim = {};
    if (host_.ports.vehicle.gamma) host_.ports.vehicle.gamma->onDisplays = {};
    UnhookWindow();
}

std::vector<Page> VehicleModule::Pages() {
    return {VehiclePage(host_.settings, host_.dialogs)};
}

Ignition::Needs VehicleModule::IgnitionNeeds() {
    return {
        .base = host_.base,
        .carrier = [this] { return std::make_unique<CarrierLine>(host_.ports.remote.serial()); },
        .gpio = host_.ports.vehicle.gpio,
        .pause = [this] { host_.modules.Ask(&Module::IgnitionOff); },
        .goOn =
            [this] {
                refused_ = false;
                host_.modules.Ask(&Module::IgnitionOn);
            },
        .shutDown = [this] { TimedOut(); }};
}

PowerEvents::Whole VehicleModule::Sleepers() {
    return {.suspend =
                [this] {
                    playback_.Sleep();
                    host_.modules.Ask(&Module::Suspend);
                    host_.LeaveScreen("frmGPS");
                },
            .mute = [this] { playback_.TheLoudness().Suspend(); },
            .resume =
                [this] {
                    host_.modules.Ask(&Module::Resume);
                    playback_.Wake();
                },
            .unmute = [this] { playback_.TheLoudness().Resume(); }};
}

void VehicleModule::SettingsRead() {
    ignition_.initAccSense();
    if (std::exchange(hooked_, true)) return;
    dimmer_.GiveBack(); // by now no other system runs that may be dimming
    HookWindow();
}

void VehicleModule::HookWindow() {
    Power& power = host_.ports.vehicle.power;
    power.onBroadcast = [this](int event, long data) { events_.Broadcast(event, data); };
    power.onShutdown = [this] { host_.quit(true); };
    power.onProblem = [this](const std::string& text) { host_.log.WriteDebugLog(text); };
    power.Listen();
}

void VehicleModule::UnhookWindow() {
    Power& power = host_.ports.vehicle.power;
    power.onBroadcast = {};
    power.onShutdown = {};
    power.onProblem = {};
}

// The screen in front is left only now: the machine might have refused.
void VehicleModule::End() {
    const ScreenOperations* front = host_.screens.Current();
    if (front && host_.screens.CurrentForm != HomeScreen)
        TrapAndLog(host_.report, "The end of the machine: ", front->switchingform);
    host_.quit(false);
}

void VehicleModule::TimedOut() {
    shutDown_.CompleteShutdown(std::exchange(refused_, true));
}

// The machine goes on waiting for this process, until it is gone.
void VehicleModule::Close(bool /*osShutdown*/) {
    UnhookWindow();
    ignition_.Close();
    if (host_.state.Dimmed) SetDimmer(false);
}

} // namespace vk
