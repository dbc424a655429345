#include "platform/linux/dbus/dbus_link.h"

#include <poll.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <utility>

namespace vk {

namespace {

constexpr int FirstPauseMs = 1000, LongestPauseMs = 60000;
constexpr std::uint64_t CallUs = 5'000'000;

std::uint64_t NowUs() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000u +
           static_cast<std::uint64_t>(now.tv_nsec) / 1000u;
}

// It may be telling just now.
void Drop(std::unique_ptr<QSocketNotifier>& notifier) {
    if (!notifier) return;
    notifier->setEnabled(false);
    notifier.release()->deleteLater();
}

} // namespace

DBusLink::DBusLink(std::string address, int greetingMs, std::string service)
    : address_(std::move(address)), greetingMs_(greetingMs), service_(std::move(service)) {
    timer_.setSingleShot(true);
    retry_.setSingleShot(true);
    greeting_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Process(); });
    QObject::connect(&retry_, &QTimer::timeout, &retry_, [this] { Try(); });
    QObject::connect(&greeting_, &QTimer::timeout, &greeting_, [this] { Lost("no answer"); });
}

DBusLink::~DBusLink() {
    onReady = {};
    onLost = {};
    Close();
}

void DBusLink::Connect() {
    if (!bus_ && !retry_.isActive()) Try();
}

void DBusLink::Try() {
    if (!Open()) return;
    greeting_.start(greetingMs_);
    Process();
}

bool DBusLink::Open() {
    int result = sd_bus_new(&bus_);
    if (result >= 0 && address_.empty()) {
        const char* set = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
        result = sd_bus_set_address(bus_, set ? set : "unix:path=/run/dbus/system_bus_socket");
    } else if (result >= 0) {
        result = sd_bus_set_address(bus_, address_.c_str());
    }
    if (result >= 0) result = sd_bus_set_bus_client(bus_, 1);
    if (result >= 0) result = sd_bus_set_close_on_exit(bus_, 0);
    if (result >= 0) result = sd_bus_start(bus_);
    if (result < 0) Lost(std::strerror(-result));
    return result >= 0;
}

// What comes meanwhile, the bus's own answers included, is told by `Process`.
void DBusLink::Watch() {
    if (!bus_) return;
    const int fd = sd_bus_get_fd(bus_);
    if (fd < 0) return Lost("closed");
    if (!reading_) {
        reading_ = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
        writing_ = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Write);
        QObject::connect(reading_.get(), &QSocketNotifier::activated, [this] { Process(); });
        QObject::connect(writing_.get(), &QSocketNotifier::activated, [this] { Process(); });
    }
    writing_->setEnabled((sd_bus_get_events(bus_) & POLLOUT) != 0);
    std::uint64_t dueUs = UINT64_MAX;
    if (sd_bus_get_timeout(bus_, &dueUs) < 0 || dueUs == UINT64_MAX) return timer_.stop();
    const std::uint64_t now = NowUs();
    timer_.start(dueUs > now ? static_cast<int>((dueUs - now) / 1000 + 1) : 0);
}

void DBusLink::Process() {
    int more = 1;
    while (bus_ && more > 0)
        more = sd_bus_process(bus_, nullptr);
    if (more < 0) return Lost(std::strerror(-more));
    if (bus_ && !ready_ && sd_bus_is_ready(bus_) > 0) Greeted();
    Watch();
}

void DBusLink::Greeted() {
    greeting_.stop();
    ready_ = true;
    told_ = false;
    pauseMs_ = 0;
    for (const auto& hearer : hearers_)
        AddHearer(*hearer);
    if (onReady) onReady();
}

void DBusLink::Lost(const std::string& why) {
    Close();
    pauseMs_ = std::clamp(2 * pauseMs_, FirstPauseMs, LongestPauseMs);
    retry_.start(pauseMs_);
    if (!std::exchange(told_, true) && onLost) onLost(why);
}

// Who waits for an answer gets one.
void DBusLink::Close() {
    ready_ = false;
    Drop(reading_);
    Drop(writing_);
    timer_.stop();
    greeting_.stop();
    if (bus_) sd_bus_close(bus_);
    bus_ = sd_bus_unref(bus_);
    for (const auto& pending : std::exchange(pending_, {}))
        pending->reply(nullptr, "the bus has gone");
}

// Calls -------------------------------------------------------------------------------------------

sd_bus_message* DBusLink::NewCall(const char* object, const char* interface, const char* method) {
    sd_bus_message* message = nullptr;
    if (ready_)
        sd_bus_message_new_method_call(bus_, &message, service_.c_str(), object, interface, method);
    return message;
}

void DBusLink::Send(sd_bus_message* message, Reply reply) {
    if (!message) return reply(nullptr, "the bus is not there");
    pending_.push_back(std::make_unique<Pending>(Pending{this, std::move(reply)}));
    const auto answered = [](sd_bus_message* answer, void* data, sd_bus_error*) {
        auto* const asked = static_cast<Pending*>(data);
        auto& all = asked->bus->pending_;
        const auto at = std::ranges::find(all, asked, &std::unique_ptr<Pending>::get);
        if (at == all.end()) return 0;
        const auto mine = std::move(*at);
        all.erase(at);
        const sd_bus_error* error = sd_bus_message_get_error(answer);
        const char* words = error ? (error->message ? error->message : error->name) : "";
        mine->reply(error ? nullptr : answer, words);
        return 0;
    };
    const int sent =
        sd_bus_call_async(bus_, nullptr, message, answered, pending_.back().get(), CallUs);
    sd_bus_message_unref(message);
    if (sent < 0) {
        const auto mine = std::move(pending_.back());
        pending_.pop_back();
        mine->reply(nullptr, std::strerror(-sent));
    }
    Watch();
}

void DBusLink::Hear(const char* object, const char* interface, const char* member,
                    std::function<void(sd_bus_message*)> heard) {
    hearers_.push_back(
        std::make_unique<Hearer>(Hearer{object, interface, member, std::move(heard)}));
    if (ready_) AddHearer(*hearers_.back());
}

void DBusLink::AddHearer(Hearer& hearer) {
    const auto heard = [](sd_bus_message* message, void* data, sd_bus_error*) {
        static_cast<Hearer*>(data)->heard(message);
        return 0;
    };
    const bool own = hearer.interface.starts_with("org.freedesktop.DBus");
    sd_bus_match_signal_async(bus_, nullptr, own ? "org.freedesktop.DBus" : service_.c_str(),
                              hearer.object.c_str(), hearer.interface.c_str(),
                              hearer.member.c_str(), heard, nullptr, &hearer);
}

} // namespace vk
