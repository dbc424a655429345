// The vehicle: the ignition, sleep, the dimmed screen, the machine's end.
#pragma once

#include "app/host/dark_pane.h"
#include "app/modules/playback_module.h"
#include "power/dimmer.h"
#include "power/ignition.h"
#include "power/power_events.h"
#include "power/shut_down.h"

#include <vector>

namespace vk {

class VehicleModule : public Module {
  public:
    VehicleModule(Host& host, PlaybackModule& playback);
    ~VehicleModule() override;

    std::vector<Page> Pages() override;
    void SettingsRead() override;
    void Unload() override { host_.daylight.Forget(); }
    void Supervise() override { ignition_.Supervise(); }
    void Resume() override { dimmer_.Follow(); }
    void Close(bool osShutdown) override;

    void PowerAction() { shutDown_.PowerAction(); }
    void SetDimmer(bool force) { dimmer_.SetDimmer(force); }

  private:
    Ignition::Needs IgnitionNeeds();
    PowerEvents::Whole Sleepers();
    void HookWindow();
    void UnhookWindow();
    void TimedOut();
    void End();

    Host& host_;
    PlaybackModule& playback_;
    DarkPane pane_{&host_.window};
    Dimmer dimmer_;
    ShutDown shutDown_;
    PowerEvents events_;
    Ignition ignition_;
    bool hooked_ = false;
    bool refused_ = false; ///< the driver has been told of it since the ignition went off
};

} // namespace vk
