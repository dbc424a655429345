#include "app/modules/navigation_module.h"

#include "core/time_of_day.h"
#include "navigation/external_map.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "settings/gps_page.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

/// In the place of a map, on a display whose windows cannot be taken.
class NoMap : public MapPane {
  public:
    explicit NoMap(MapWindow::Needs needs) : window_(std::move(needs)) {}
    void Enter() override {}
    void Leave() override {}
    MapWindow& Window() override { return window_; }
    std::string Complaint() const override { return "There is no map to show"; }

  private:
    MapWindow window_;
};

} // namespace

NavigationModule::NavigationModule(Host& host, LibraryModule& library, PlaybackModule& playback)
    : Module(host.modules), host_(host), library_(library), playback_(playback),
      isn_(host.skin, host.settings.AppDir(), host.log),
      mapRows_(
          host.base, host.ports.machine.child, [this] { return Setup().map; },
          [this] {
              if (dest_) dest_->CreateDestWindow();
          }) {
    playback_.loadGPS = [this] { Show(); };
    host.ports.navigation.engine.onLog = [this](const std::string& line) {
        host_.log.WriteDebugLog(line);
    };
}

NavigationModule::~NavigationModule() {
    playback_.loadGPS = {};
    host_.ports.navigation.engine.onLog = {};
}

std::vector<LoadStep> NavigationModule::Steps() {
    if (Chosen() == 0) return {};
    return {{{50, 60}, "Loading GPS System", "Loading GPS System", [this] { Load(); }}};
}

std::vector<Page> NavigationModule::Pages() {
    return {GPSPage({.base = host_.base,
                     .engine = [this] { return host_.ports.navigation.engine.Installed(); },
                     .serialPorts = host_.ports.tuners.serialList,
                     .installed =
                         [this] {
                             const auto& list = host_.ports.machine.installed;
                             return list ? list() : std::vector<InstalledProgram>();
                         },
                     .mapRows = mapRows_.Rows()})};
}

// Another choice, made in the settings.
void NavigationModule::SettingsRead() {
    if (Chosen() == mapOf_) return;
    map_.reset();
    dest_ = nullptr;
}

void NavigationModule::Load() {
    if (!windows_ && host_.ports.screen.foreignWindows)
        windows_ = host_.ports.screen.foreignWindows();
    if (!map_) map_ = MakeMap();
    mapOf_ = Chosen();
    screen_ = std::make_unique<frmGPS>(host_.controls, Needs(), isn_, &host_.window);
    host_.screens.Add(GPSName, screen_->screen(), *screen_);
    if (dest_) dest_->CreateDestWindow();
}

void NavigationModule::Unload() {
    host_.screens.Remove(GPSName);
    screen_.reset();
}

void NavigationModule::Close(bool osShutdown) {
    if (!screen_) return;
    if (osShutdown)
        host_.log.WriteDebugLog("form unloaded by administrative request - os shutdown");
    if (host_.screens.CurrentForm == GPSName) screen_->screen().switchingform();
}

// The screen stands on the map.
void NavigationModule::Release() {
    Unload();
    map_.reset();
}

void NavigationModule::Show() {
    const bool external = Chosen() == 2, known = Chosen() >= 1 && Chosen() <= 3;
    if (!screen_ || !known || (external && !FileExists(host_.settings.values.EXTGPSexeName)))
        return;
    host_.screens.Show(GPSName);
    if (Chosen() == 1) screen_->screen().ReDrawStatus();
}

bool NavigationModule::GetDestinatorInstalled() const {
    const std::string version = host_.ports.navigation.engine.Installed();
    if (!version.empty()) host_.log.WriteDebugLog("Destinator Version: " + version);
    return !version.empty();
}

std::unique_ptr<MapPane> NavigationModule::MakeMap() {
    if (Chosen() == 2 && windows_)
        return std::make_unique<ExternalMap>(
            ExternalMap::Needs{host_.base, host_.ports.machine.programs, *windows_, WindowNeeds()});
    if (Chosen() != 1) return std::make_unique<NoMap>(WindowNeeds());
    auto dest = MakeDest();
    dest_ = dest.get();
    return dest;
}

std::unique_ptr<UCDest> NavigationModule::MakeDest() {
    return std::make_unique<UCDest>(
        UCDest::Needs{.engine = host_.ports.navigation.engine,
                      .window = WindowNeeds(),
                      .setup = [this] { return Setup(); },
                      .threeD = [this] { return host_.settings.values.Use3Dmaps; },
                      .night = [this] { return IsNight(); },
                      .kept = KeptSettings(host_.settings)});
}

MapWindow::Needs NavigationModule::WindowNeeds() {
    return {.windows = windows_.get(), .surfaces = host_.surfaces, .host = [this] {
                return static_cast<WindowHandle>(host_.window.winId());
            }};
}

EngineSetup NavigationModule::Setup() {
    const std::string map = host_.settings.Get(setting::GPSMap);
    return {.map = map.empty() ? host_.settings.File("map.bin") : map,
            .source = host_.settings.Get(setting::GPSReceiver),
            .serialSettings = host_.settings.Get(setting::GPSSerial),
            .drawnAt = std::clamp(host_.state.ScreenHeight * 100 / 480, 100, 400)};
}

bool NavigationModule::IsNight() const {
    const Settings& s = host_.settings.values;
    const auto time1 = ParseTimeOfDay(s.Time1);
    const auto time2 = ParseTimeOfDay(s.Time2);
    return time1 && time2 && !IsDay(host_.ports.machine.clock.Now().MinuteOfDay(), *time1, *time2);
}

GPSScreen::Needs NavigationModule::Needs() {
    return {.base = host_.base,
            .map = *map_,
            .dest = dest_,
            .transport = playback_.transport,
            .loudness = playback_.TheLoudness(),
            .audio = playback_.audio,
            .browser = library_.browser,
            .keys = host_.keys,
            .checkDaylight = [this] { host_.daylight.Check(); }};
}

} // namespace vk
