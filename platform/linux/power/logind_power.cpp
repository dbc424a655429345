#include "platform/linux/power/logind_power.h"

#include <fcntl.h>

#include <array>
#include <utility>

namespace vk {

namespace {

constexpr const char* Manager = "/org/freedesktop/login1";
constexpr const char* ManagerInterface = "org.freedesktop.login1.Manager";
constexpr std::array Methods = {"PowerOff", "Hibernate", "Suspend"}; // by `PowerWish`

bool Flag(sd_bus_message* message) {
    int flag = 0;
    return sd_bus_message_read(message, "b", &flag) > 0 && flag;
}

} // namespace

LogindPower::LogindPower(DBusLink& bus) : bus_(bus) {
    bus_.onReady = [this] { Connected(); };
    bus_.onLost = [this](const std::string& why) {
        inhibitor_.Close();
        Problem("The machine's power cannot be reached: " + why);
    };
}

void LogindPower::Listen() {
    if (std::exchange(listening_, true)) return;
    if (bus_.Ready()) return Connected();
    bus_.Connect();
}

void LogindPower::Connected() {
    if (!listening_) return;
    Inhibit();
    if (std::exchange(heard_, true)) return;
    const auto later = [this](void (LogindPower::*what)(bool)) {
        return [this, what](sd_bus_message* message) {
            const bool begins = Flag(message);
            QMetaObject::invokeMethod(
                &events_, [this, what, begins] { (this->*what)(begins); }, Qt::QueuedConnection);
        };
    };
    bus_.Hear(Manager, ManagerInterface, "PrepareForSleep", later(&LogindPower::PrepareForSleep));
    bus_.Hear(Manager, ManagerInterface, "PrepareForShutdown",
              later(&LogindPower::PrepareForShutdown));
    // logind was started anew, and knows of no inhibitor.
    bus_.Hear("/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged",
              [this](sd_bus_message* message) {
                  const char *name = "", *before = "", *after = "";
                  sd_bus_message_read(message, "sss", &name, &before, &after);
                  if (std::string_view(name) == "org.freedesktop.login1" && *after) Inhibit();
              });
}

void LogindPower::Inhibit() {
    inhibitor_.Close();
    if (!listening_) return;
    ++asked_;
    bus_.Call(
        Manager, ManagerInterface, "Inhibit",
        [this](sd_bus_message* reply, const std::string& error) { Take(reply, error); }, "ssss",
        "sleep:shutdown", "Velkorandum", "What plays is saved", "delay");
}

// An answer that comes too late, or not to the last question, is let go.
void LogindPower::Take(sd_bus_message* reply, const std::string& error) {
    int fd = -1;
    if (!reply) return --asked_, Problem("The machine does not wait before it sleeps: " + error);
    const bool read = sd_bus_message_read(reply, "h", &fd) > 0;
    FileDescriptor mine(read ? ::fcntl(fd, F_DUPFD_CLOEXEC, 3) : -1);
    if (--asked_ == 0 && listening_ && !asleep_) inhibitor_ = std::move(mine);
}

void LogindPower::PrepareForSleep(bool begins) {
    if (!listening_) return;
    asleep_ = begins;
    if (!begins) Inhibit(); // first: the next sleep may follow at once
    if (onBroadcast && begins) onBroadcast(PBT_APMQUERYSUSPEND, 0);
    if (onBroadcast) onBroadcast(begins ? PBT_APMSUSPEND : PBT_APMRESUMESUSPEND, 0);
    if (begins) inhibitor_.Close();
}

void LogindPower::PrepareForShutdown(bool begins) {
    if (begins && listening_ && onShutdown) onShutdown();
}

void LogindPower::Ask(PowerWish wish, Answer answer) {
    bus_.Connect();
    constexpr int Interactive = 0;
    bus_.Call(
        Manager, ManagerInterface, Methods.at(static_cast<std::size_t>(wish)),
        [this, answer = std::move(answer)](sd_bus_message*, const std::string& error) {
            QMetaObject::invokeMethod(
                &events_, [answer, error] { answer(error); }, Qt::QueuedConnection);
        },
        "b", Interactive);
}

} // namespace vk
