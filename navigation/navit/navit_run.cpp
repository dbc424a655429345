#include "navigation/navit/navit_run.h"

#include "platform/files.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vk {

namespace {

constexpr const char* WindowTitle = "Navit"; // it has a helper of another title

// In the name space of the sockets without files: nothing is left of it.
std::string NewBusAddress() {
    static int count = 0;
    return "unix:abstract=/velkorandum/navigation-" + std::to_string(::getpid()) + "-" +
           std::to_string(++count);
}

bool MakeFolders(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return !error;
}

bool WriteText(const std::string& path, const std::string& text) {
    DeleteFileAt(path);
    return AppendToFile(path, text);
}

} // namespace

bool IsRoute(const std::string& status) {
    return status == "33" || status == "17";
}

bool IsNoRoute(const std::string& status) {
    return status == "1";
}

bool IsBeingBuilt(const std::string& status) {
    return status == "13" || status == "5" || status == "9";
}

NavitRun::NavitRun(Clock& clock, NavitPlace place, NavitTimes times)
    : place_(std::move(place)), times_(times),
      start_(clock.MakeTimer([this] { Down("did not come up"); })),
      look_(clock.MakeTimer([this] { LookForWindow(); })),
      ping_(clock.MakeTimer([this] { Ping(); })) {}

NavitRun::~NavitRun() {
    onDown = {};
    onZoom = {};
    down_ = true;
    up_ = false;
    bus_.reset();
}

void NavitRun::Start(const NavitConfig& config) {
    address_ = NewBusAddress();
    start_->Start(times_.start);
    const std::string folder = place_.folder + "/";
    if (!MakeFolders(place_.folder) || !WriteText(folder + "navit.xml", NavitConfigText(config)) ||
        !WriteText(folder + "bus.conf", PrivateBusConfigText(address_)))
        return Down("cannot write into " + place_.folder);
    busProgram_.onOutput = [this](std::string_view said) { BusStarted(said); };
    busProgram_.onEnded = [this] { Down("lost its bus"); };
    navit_.onEnded = [this] { Down("has ended"); };
    busProgram_.Start(place_.busProgram,
                      {"--config-file=" + folder + "bus.conf", "--nofork", "--print-address=1"},
                      {});
}

// It says where it listens when it does.
void NavitRun::BusStarted(std::string_view said) {
    if (bus_ || down_ || said.find('\n') == std::string_view::npos) return;
    bus_ = std::make_unique<NavitBus>(address_);
    addresses_ = std::make_unique<Addresses>(*bus_);
    bus_->onReady = [this] { StartNavit(); };
    bus_->onLost = [this] { Down("lost its bus"); };
    bus_->onEngine = [this](bool there) { EngineOnBus(there); };
    bus_->Connect();
}

void NavitRun::StartNavit() {
    navit_.Start(place_.program, {"-c", place_.folder + "/navit.xml"},
                 {{"HOME", place_.folder}, {"DBUS_SESSION_BUS_ADDRESS", address_}});
}

void NavitRun::EngineOnBus(bool there) {
    if (!there) return Down("has left its bus");
    bus_->Evaluate("layout.name", [this](const std::optional<std::string>& name) {
        answers_ = name.has_value();
        if (!answers_ || down_) return;
        addresses_->Prepare();
        if (place_.windows) look_->Start(times_.window);
        CheckUp();
    });
}

void NavitRun::LookForWindow() {
    for (const ForeignWindow& window : WindowsOf(*place_.windows, navit_.Id()))
        if (window.title == WindowTitle) window_ = window.handle;
    CheckUp();
}

void NavitRun::CheckUp() {
    if (up_ || down_ || !answers_ || (place_.windows && window_ == 0)) return;
    up_ = true;
    look_->Stop();
    start_->Stop();
    ping_->Start(times_.ping);
    if (onUp) onUp();
}

// Questions are counted, not seconds: who stood still may be this process.
void NavitRun::Ping() {
    if (unanswered_ >= MostUnanswered) return Down("does not answer");
    if (unanswered_++ > 0) return;
    bus_->Evaluate("route.route_status", [this](const std::optional<std::string>& status) {
        if (!status) return;
        unanswered_ = 0;
        hasRoute_ = IsRoute(*status);
    });
    bus_->Evaluate("zoom", [this](const std::optional<std::string>& zoom) {
        if (zoom && onZoom) onZoom(*zoom);
    });
}

void NavitRun::Down(const std::string& why) {
    if (std::exchange(down_, true)) return;
    up_ = false;
    window_ = 0;
    for (Timer* const timer : {start_.get(), look_.get(), ping_.get()})
        timer->Stop();
    navit_.Kill();
    if (onDown) onDown(why);
}

} // namespace vk
