#include "navigation/navit/gpsd_feed.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>

namespace vk {

namespace {

constexpr std::string_view Scheme = "gpsd://";
constexpr std::string_view Wish = "?WATCH={\"enable\":true,\"nmea\":true};\n";
constexpr std::size_t LongestLine = 16384;

// A host that has gone says nothing: it is asked after 10 s of silence, and counts as gone 15 s
// later.
void KeepAlive(int socket) {
    constexpr struct {
        int level, option, value;
    } Wishes[] = {{SOL_SOCKET, SO_KEEPALIVE, 1},
                  {IPPROTO_TCP, TCP_KEEPIDLE, 10},
                  {IPPROTO_TCP, TCP_KEEPINTVL, 5},
                  {IPPROTO_TCP, TCP_KEEPCNT, 3}};
    for (const auto& [level, option, value] : Wishes)
        ::setsockopt(socket, level, option, &value, sizeof value);
}

void Drop(std::unique_ptr<QSocketNotifier>& notifier) {
    if (!notifier) return;
    notifier->setEnabled(false);
    notifier.release()->deleteLater(); // it may be telling just now
}

} // namespace

GpsdFeed::GpsdFeed(const std::string& source) {
    if (!source.starts_with(Scheme)) return;
    const std::string place = source.substr(Scheme.size());
    const auto colon = place.find(':');
    if (colon != std::string::npos)
        std::from_chars(place.data() + colon + 1, place.data() + place.size(), port_);
    const std::string host = place.substr(0, colon);
    if (!host.empty() && host != "localhost") host_ = host;
}

bool GpsdFeed::Open() {
    Close();
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port_);
    failure_ = "no address of numbers";
    if (::inet_pton(AF_INET, host_.c_str(), &address.sin_addr) != 1) return false;
    socket_ = FileDescriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    KeepAlive(socket_.get());
    if (::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
            0 &&
        errno != EINPROGRESS) {
        failure_ = std::strerror(errno);
        return false;
    }
    reading_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
    writing_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Write);
    QObject::connect(reading_.get(), &QSocketNotifier::activated, [this] { Read(); });
    QObject::connect(writing_.get(), &QSocketNotifier::activated, [this] { Ask(); });
    return true;
}

void GpsdFeed::Close() {
    Drop(reading_);
    Drop(writing_);
    socket_.Close();
    pending_.clear();
}

// It can be written to when the connection is made, or has failed.
void GpsdFeed::Ask() {
    int error = 0;
    socklen_t length = sizeof error;
    ::getsockopt(socket_.get(), SOL_SOCKET, SO_ERROR, &error, &length);
    if (error != 0) return Lost(std::strerror(error));
    Drop(writing_);
    if (::send(socket_.get(), Wish.data(), Wish.size(), MSG_NOSIGNAL) < 0)
        Lost(std::strerror(errno));
}

void GpsdFeed::Read() {
    std::array<char, 4096> buffer;
    const ssize_t got = ::recv(socket_.get(), buffer.data(), buffer.size(), 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got <= 0) return Lost(got == 0 ? "gpsd has ended" : std::strerror(errno));
    pending_.append(buffer.data(), static_cast<std::size_t>(got));
    std::string sentences;
    for (auto end = pending_.find('\n'); end != std::string::npos; end = pending_.find('\n')) {
        if (pending_[0] == '$' || pending_[0] == '!') sentences += pending_.substr(0, end + 1);
        pending_.erase(0, end + 1);
    }
    if (pending_.size() > LongestLine) pending_.clear();
    if (onBytes && !sentences.empty()) onBytes(sentences);
}

void GpsdFeed::Lost(const std::string& why) {
    failure_ = why;
    Close();
    if (onGone) onGone();
}

} // namespace vk
