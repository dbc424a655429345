#include "platform/qt/qt_local_stream.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace vk {

bool QtLocalStream::Connect(const std::string& path) {
    Close();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket ||
        ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    socket_ = std::move(socket);
    notifier_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { Read(); });
    return true;
}

// The notifier may be the sender of the signal that leads here.
void QtLocalStream::Close() {
    if (notifier_) {
        notifier_->setEnabled(false);
        notifier_.release()->deleteLater();
    }
    socket_.Close();
}

// An end of the stream that is met here is met again by `Read`.
std::string QtLocalStream::Input() {
    std::string bytes(65536, '\0');
    const ssize_t got = socket_ ? ::recv(socket_.get(), bytes.data(), bytes.size(), 0) : 0;
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
}

// One piece a turn of the event loop: a peer that never stops must not hold up everything else.
void QtLocalStream::Read() {
    std::array<char, 4096> buffer;
    const ssize_t got = ::recv(socket_.get(), buffer.data(), buffer.size(), 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got > 0) {
        if (onBytes) onBytes({buffer.data(), static_cast<std::size_t>(got)});
        return;
    }
    Close();
    if (onClosed) onClosed();
}

} // namespace vk
