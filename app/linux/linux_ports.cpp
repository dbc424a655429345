#include "app/linux/linux_ports.h"

#include "input/remote/lirc_receiver.h"
#include "input/remote/uuirt_calls.h"
#include "navigation/engine/log_feed.h"
#include "navigation/engine/serial_feed.h"
#include "navigation/navit/gpsd_feed.h"
#include "platform/film_library.h"
#include "platform/linux/power/gpio_line.h"
#include "platform/qt/qt_foreign_windows.h"
#include "platform/qt/qt_local_stream.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_window_layer.h"

#include <unistd.h>

#include <cstdlib>

namespace vk {

namespace {

std::string Environment(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    return value ? value : "";
}

// Where the engine lives; an application directory that takes no files is none of them.
std::string NavigationFolder(const std::string& appDir) {
    if (::access(appDir.c_str(), W_OK) == 0) return appDir + "/navigation";
    return "/tmp/velkorandum-navigation-" + std::to_string(::getuid());
}

} // namespace

LinuxPorts::LinuxPorts(const std::string& appDir)
    : appDir_(appDir), player_(MakePlayerWindow(*programs_, appDir)),
      mapWindows_(MakeForeignWindows()),
      navigation_(clock_,
                  [this](const std::string& source, const std::string& serialSettings) {
                      return MakeFeed(source, serialSettings);
                  },
                  {.folder = NavigationFolder(appDir), .windows = mapWindows_.get()}) {}

std::unique_ptr<SentenceFeed> LinuxPorts::MakeFeed(const std::string& source,
                                                   const std::string& serialSettings) {
    constexpr std::string_view Log = "log:";
    if (source.starts_with(Log))
        return std::make_unique<LogFeed>(clock_, source.substr(Log.size()));
    if (source.starts_with("gpsd")) return std::make_unique<GpsdFeed>(source);
    if (SerialPortName(source).empty()) return nullptr;
    return std::make_unique<SerialFeed>(std::make_unique<QtSerialPort>(serialOwners_), source,
                                        serialSettings);
}

Ports LinuxPorts::ports() {
    return {
        .machine = {clock_, uiThread_, locale_, volumes_, *programs_, *instance_,
                    [] { return std::make_unique<QtChildProcess>(); }, registry_, desktop_,
                    Environment, ListInstalledPrograms},
        .screen = {fonts_, QtScreenMetrics, MakeForeignWindows},
        .sound = {mixer_, soundInput_, *player_, beeper_, listener_},
        .remote = {.serial = [this] { return std::make_unique<QtSerialPort>(serialOwners_); },
                   .stream = [] { return std::make_unique<QtLocalStream>(); },
                   .x10 = {},
                   .uuirt = LoadUUIRTLibrary,
                   .lircSocket = Environment(LircVariable)},
        .vehicle = {power_, gamma_.get(), &backlight_, [] { return std::make_unique<GpioLine>(); }},
        .tuners = {
            .radio = [this](std::string& reason) { return LoadRadioLibrary(appDir_, reason); },
            .serial = [this] { return std::make_unique<QtSerialPort>(serialOwners_); },
            .serialList = [] { return ListSerialPorts(); },
            .route = route_},
        .navigation = {navigation_},
        .films = {
            [this](std::string& reason) { return LoadMediaPlayer(appDir_, uiThread_, reason); },
            idle_, *probe_}};
}

// Both are called on the card's thread.
void LinuxPorts::SoundCardChanged(bool present) {
    uiThread_.Post([this, present] {
        if (listener_.changed) listener_.changed(present);
    });
}

void LinuxPorts::LogSoundCard(const std::string& text) {
    uiThread_.Post([this, text] {
        if (listener_.log) listener_.log(text);
    });
}

} // namespace vk
