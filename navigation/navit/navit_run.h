// One life of the engine: its bus, itself, its window, its heartbeat.
#pragma once

#include "navigation/navit/addresses.h"
#include "navigation/navit/navit_bus.h"
#include "navigation/navit/navit_config.h"
#include "navigation/navit/tied_child.h"
#include "platform/clock.h"
#include "platform/foreign_windows.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Milliseconds.
struct NavitTimes {
    int start = 30000; ///< the longest way to a map on the screen
    int window = 20;   ///< between two looks for the window
    int ping = 2000;   ///< between two questions whether it lives
};

/// Where it is found and where it lives.
struct NavitPlace {
    std::string program = "/usr/bin/navit";
    std::string busProgram = "/usr/bin/dbus-daemon";
    std::string folder;                ///< its home, made when it is missing
    ForeignWindows* windows = nullptr; ///< null: it runs without a window
};

/// Begins with `Start` and ends with `onDown` or this object. It is told from timers and from the
/// bus: it must not be destroyed while it tells.
class NavitRun {
  public:
    static constexpr int MostUnanswered = 4; ///< questions; then it hangs

    NavitRun(Clock& clock, NavitPlace place, NavitTimes times);
    ~NavitRun();
    NavitRun(const NavitRun&) = delete;
    NavitRun& operator=(const NavitRun&) = delete;

    void Start(const NavitConfig& config);
    /// It answers, and its window is there.
    bool Up() const { return up_; }
    WindowHandle Window() const { return window_; }
    /// As it was told last: a way has been found.
    bool HasRoute() const { return hasRoute_; }
    void SetHasRoute(bool has) { hasRoute_ = has; }
    NavitBus& Bus() { return *bus_; }
    Addresses& Streets() { return *addresses_; }

    std::function<void()> onUp;
    /// The scale, which the engine changes by itself; now and then.
    std::function<void(const std::string& zoom)> onZoom;
    /// It has ended, hung or never come; what was left of it has been killed.
    std::function<void(const std::string& why)> onDown;

  private:
    void BusStarted(std::string_view said);
    void StartNavit();
    void EngineOnBus(bool there);
    void LookForWindow();
    void CheckUp();
    void Ping();
    void Down(const std::string& why);

    NavitPlace place_;
    NavitTimes times_;
    TiedChild busProgram_, navit_;
    std::string address_;
    std::unique_ptr<Timer> start_, look_, ping_;
    std::unique_ptr<Addresses> addresses_; // answered by the bus's end, so it goes later
    std::unique_ptr<NavitBus> bus_;
    WindowHandle window_ = 0;
    bool answers_ = false, up_ = false, down_ = false, hasRoute_ = false;
    int unanswered_ = 0;
};

/// The values of "route.route_status" that tell of a way, of none, and of one that is looked for.
bool IsRoute(const std::string& status);
bool IsNoRoute(const std::string& status);
bool IsBeingBuilt(const std::string& status);

} // namespace vk
