// Navigation: the engine's control, the map's screen, and the way to it.
#pragma once

#include "app/modules/library_module.h"
#include "app/modules/playback_module.h"
#include "navigation/screen/frm_gps.h"
#include "navigation/uc_dest.h"
#include "settings/map_rows.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

class NavigationModule : public Module {
  public:
    NavigationModule(Host& host, LibraryModule& library, PlaybackModule& playback);
    ~NavigationModule() override;

    std::vector<LoadStep> Steps() override;
    std::vector<Page> Pages() override;
    void SettingsRead() override;
    void Unload() override;
    void SessionEnds() override { host_.LeaveScreen(GPSName); }
    void Close(bool osShutdown) override;
    void Release() override;

    /// Shows the GPS screen where there is one, and something to show on it (`LoadGPS`).
    void Show();
    /// Whether the engine is there; its version goes to the log.
    bool GetDestinatorInstalled() const;

  private:
    void Load();
    std::unique_ptr<MapPane> MakeMap();
    std::unique_ptr<UCDest> MakeDest();
    GPSScreen::Needs Needs();
    MapWindow::Needs WindowNeeds();
    EngineSetup Setup();
    bool IsNight() const;
    std::int16_t Chosen() const { return host_.settings.values.GPSModule; }

    Host& host_;
    LibraryModule& library_;
    PlaybackModule& playback_;
    IsnFile isn_;
    MapRows mapRows_; ///< a map in the making goes on behind every screen
    std::unique_ptr<ForeignWindows> windows_;
    std::int16_t mapOf_ = 0; ///< the `GPSModule` that `map_` is for
    /// It outlives a visit to the settings: a route is to be there after it.
    std::unique_ptr<MapPane> map_;
    UCDest* dest_ = nullptr; ///< `map_`, when that is the engine
    std::unique_ptr<frmGPS> screen_;
};

} // namespace vk
