#include "platform/linux/player_socket.h"

#include "platform/paths.h"
#include "platform/user_folders.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vk {

namespace {

constexpr int Backlog = 16;

// Both ends must come to the same, whatever name led them to the folder (FNV-1a,
// http://www.isthe.com/chongo/tech/comp/fnv/).
std::string Mark(const std::string& folder) {
    if (folder.empty()) return {};
    char* const real = ::realpath(folder.c_str(), nullptr);
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char byte : std::string(real ? real : folder))
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
    ::free(real);
    char text[24];
    std::snprintf(text, sizeof text, " %016llx", static_cast<unsigned long long>(hash));
    return text;
}

bool FillAddress(const std::string& path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}

FileDescriptor NewSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool WaitReadable(int fd, int timeoutMs) {
    pollfd item{fd, POLLIN, 0};
    int result = 0;
    do
        result = ::poll(&item, 1, timeoutMs);
    while (result < 0 && errno == EINTR);
    return result > 0;
}

} // namespace

std::string PlayerSocketPath(const std::string& windowClass, const std::string& folder) {
    const std::string name = windowClass + Mark(folder);
    sockaddr_un address{};
    if (const std::string runtime = UserRuntimeFolder(); !runtime.empty()) {
        std::string path = JoinPath(runtime, name);
        if (FillAddress(path, address)) return path;
    }
    const std::string own = UserTemporaryFolder();
    return own.empty() ? own : JoinPath(own, name);
}

FileDescriptor ListenAt(const std::string& path) {
    sockaddr_un address{};
    FileDescriptor listener = NewSocket();
    if (!listener || !FillAddress(path, address)) return FileDescriptor();
    ::unlink(path.c_str());
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::chmod(path.c_str(), 0600) != 0 || ::listen(listener.get(), Backlog) != 0)
        return FileDescriptor();
    return listener;
}

FileDescriptor ConnectTo(const std::string& path) {
    sockaddr_un address{};
    FileDescriptor connection = NewSocket();
    if (!connection || !FillAddress(path, address) ||
        ::connect(connection.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
            0)
        return FileDescriptor();
    return connection;
}

bool SendRequest(const FileDescriptor& connection, const PlayerRequest& request,
                 std::string_view payload) {
    iovec parts[2] = {{const_cast<PlayerRequest*>(&request), sizeof request},
                      {const_cast<char*>(payload.data()), payload.size()}};
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = payload.empty() ? 1 : 2;
    return ::sendmsg(connection.get(), &message, MSG_NOSIGNAL) ==
           static_cast<ssize_t>(sizeof request + payload.size());
}

AnswerTaken TakeAnswer(const FileDescriptor& connection, int timeoutMs) {
    char packet[sizeof(PlayerReply) + PlayerTextLimit];
    if (!WaitReadable(connection.get(), timeoutMs)) return {};
    const ssize_t got = ::recv(connection.get(), packet, sizeof packet, MSG_DONTWAIT | MSG_TRUNC);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return {};
    const auto length = static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    if (length < sizeof(PlayerReply) || length > sizeof packet) return {.answer = {}, .gone = true};
    PlayerReply reply;
    std::memcpy(&reply, packet, sizeof reply);
    return {.answer = PlayerAnswer{reply.result,
                                   std::string(packet + sizeof reply, length - sizeof reply)}};
}

std::optional<std::int32_t> AskPlayer(const FileDescriptor& connection,
                                      const PlayerRequest& request, std::string_view payload,
                                      int timeoutMs) {
    if (!connection || !SendRequest(connection, request, payload)) return std::nullopt;
    const AnswerTaken taken = TakeAnswer(connection, timeoutMs);
    return taken.answer ? std::optional(taken.answer->result) : std::nullopt;
}

bool ConnectionAlive(const FileDescriptor& connection) {
    char byte = 0;
    if (!connection) return false;
    const ssize_t got = ::recv(connection.get(), &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR);
}

} // namespace vk
