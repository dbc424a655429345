// The main menu, and what its icons and the power key start.
#pragma once

#include "app/modules/navigation_module.h"
#include "app/modules/settings_module.h"
#include "app/modules/tuners_module.h"
#include "app/modules/vehicle_module.h"
#include "home/screen/velkorandum.h"

#include <memory>
#include <vector>

namespace vk {

/// The others are asked for what the menu leads to.
class HomeModule : public Module {
  public:
    struct Rooms {
        LibraryModule& library;
        PlaybackModule& playback;
        NavigationModule& navigation;
        InputModule& input;
        SettingsModule& settings;
        VehicleModule& vehicle;
        TunersModule& tuners;
    };
    HomeModule(Host& host, const Rooms& rooms);

    std::vector<LoadStep> Steps() override;
    void Unload() override;

  private:
    void Load();
    MainMenu::Needs Needs();
    MainMenu::Doors Doors();
    void PowerKey();

    Host& host_;
    Rooms rooms_;
    std::unique_ptr<velkorandum> screen_;
    bool painted_ = false; ///< once in the process, whatever made the screens anew
};

} // namespace vk
