#include "platform/linux/power/idle_inhibitor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <utility>

namespace vk {

namespace {

constexpr const char* Saver = "org.freedesktop.ScreenSaver";
constexpr const char* SaverObject = "/org/freedesktop/ScreenSaver";
constexpr const char* Who = "Velkorandum";
constexpr const char* Why = "A film plays";

} // namespace

std::string SessionBusAddress() {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS")) return address;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    const std::string socket = std::string(folder ? folder : "") + "/bus";
    struct stat found {};
    return folder && ::stat(socket.c_str(), &found) == 0 ? "unix:path=" + socket : "";
}

IdleInhibitor::IdleInhibitor(ScreenSaver& display, const std::string& session,
                             const std::string& system, int holdMs)
    : display_(display), system_(system) {
    hold_.setSingleShot(true);
    hold_.setInterval(holdMs);
    QObject::connect(&hold_, &QTimer::timeout, [this] { LetGo(); });
    const auto listen = [this](DBusLink& link, auto ask, auto lost) {
        link.onReady = [this, ask] {
            if (hold_.isActive()) (this->*ask)();
        };
        link.onLost = [lost](const std::string&) { lost(); };
    };
    listen(system_, &IdleInhibitor::AskMachine, [this] { lock_.Close(); });
    if (session.empty()) return;
    session_ = std::make_unique<DBusLink>(session, DBusLink::GreetingMs, Saver);
    listen(*session_, &IdleInhibitor::AskSession, [this] { cookie_.reset(); });
}

void IdleInhibitor::Reset() {
    display_.Reset();
    hold_.start();
    if (session_) session_->Connect();
    system_.Connect();
    if (session_ && session_->Ready()) AskSession();
    if (system_.Ready()) AskMachine();
}

void IdleInhibitor::AskSession() {
    if (cookie_ || std::exchange(sessionAsked_, true)) return;
    session_->Call(
        SaverObject, Saver, "Inhibit",
        [this](sd_bus_message* reply, const std::string&) {
            sessionAsked_ = false;
            std::uint32_t cookie = 0;
            if (reply && sd_bus_message_read(reply, "u", &cookie) > 0) cookie_ = cookie;
            if (!hold_.isActive()) LetGo();
        },
        "ss", Who, Why);
}

void IdleInhibitor::AskMachine() {
    if (lock_ || std::exchange(machineAsked_, true)) return;
    system_.Call(
        "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "Inhibit",
        [this](sd_bus_message* reply, const std::string&) {
            machineAsked_ = false;
            int fd = -1;
            const bool read = reply && sd_bus_message_read(reply, "h", &fd) > 0;
            lock_ = FileDescriptor(read ? ::fcntl(fd, F_DUPFD_CLOEXEC, 3) : -1);
            if (!hold_.isActive()) LetGo();
        },
        "ssss", "idle", Who, Why, "block");
}

void IdleInhibitor::LetGo() {
    lock_.Close();
    if (!cookie_) return;
    session_->Call(
        SaverObject, Saver, "UnInhibit", [](sd_bus_message*, const std::string&) {}, "u",
        *std::exchange(cookie_, {}));
}

} // namespace vk
