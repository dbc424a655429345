#include "player/engine/wire_server.h"

#include "platform/player_window.h"

#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace vk {

namespace {

constexpr std::size_t MaxClients = 64;
constexpr std::size_t ListBytesLimit = 512u << 20;

} // namespace

void WireServer::Collect(std::vector<pollfd>& items) const {
    if (listener_) items.push_back({listener_.get(), POLLIN, 0});
    for (const Client& client : clients_)
        items.push_back({client.connection.get(), POLLIN, 0});
}

void WireServer::Serve(const std::vector<pollfd>& items) {
    const auto ready = [&items](int fd) {
        return std::any_of(items.begin(), items.end(),
                           [fd](const pollfd& item) { return item.fd == fd && item.revents != 0; });
    };
    const bool accept = listener_ && ready(listener_.get());
    std::erase_if(clients_,
                  [&](Client& client) { return ready(client.connection.get()) && !Keep(client); });
    if (accept) Accept();
}

bool WireServer::Keep(Client& client) {
    asks_ = client.number;
    const bool stays = ServeClient(client);
    if (!stays && handlers_.left) handlers_.left(client.number);
    return stays;
}

void WireServer::Accept() {
    FileDescriptor connection(
        ::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    // Beyond the limit the connection is accepted and closed: the client learns it at once.
    if (connection && clients_.size() < MaxClients)
        clients_.push_back({std::move(connection), ++accepted_, std::nullopt, {}});
}

bool WireServer::ServeClient(Client& client) {
    static thread_local char packet[sizeof(PlayerRequest) + PlayerPayloadLimit];
    const ssize_t got =
        ::recv(client.connection.get(), packet, sizeof packet, MSG_DONTWAIT | MSG_TRUNC);
    if (got < 0) return errno == EAGAIN || errno == EINTR;
    const auto length = static_cast<std::size_t>(got);
    if (length < sizeof(PlayerRequest) || length > sizeof packet) return false;
    PlayerRequest request;
    std::memcpy(&request, packet, sizeof request);
    const auto answer = Answer(client, request, {packet + sizeof request, length - sizeof request});
    if (!answer) return false;
    const bool asksText = request.message == WM_GETTEXT && handlers_.text;
    return Reply(client, *answer, asksText ? handlers_.text(request) : std::string());
}

bool WireServer::Reply(const Client& client, std::int32_t result, const std::string& text) {
    const PlayerReply reply{result};
    std::string packet(reinterpret_cast<const char*>(&reply), sizeof reply);
    packet += text.substr(0, PlayerTextLimit);
    return ::send(client.connection.get(), packet.data(), packet.size(),
                  MSG_NOSIGNAL | MSG_DONTWAIT) == static_cast<ssize_t>(packet.size());
}

std::optional<std::int32_t> WireServer::Answer(Client& client, const PlayerRequest& request,
                                               std::string_view payload) {
    if (request.message == WM_COPYDATA) return TakeList(client, request.wParam, payload);
    return handlers_.message(request);
}

std::optional<std::int32_t> WireServer::TakeList(Client& client, std::int32_t step,
                                                 std::string_view payload) {
    if (step == ListBegin && payload.size() == sizeof(std::int64_t)) {
        std::int64_t started = 0;
        std::memcpy(&started, payload.data(), sizeof started);
        client.listStarted = started;
        client.paths.clear();
        return 1;
    }
    if (!client.listStarted) return std::nullopt;
    if (step == ListPaths && client.paths.size() + payload.size() <= ListBytesLimit) {
        client.paths.append(payload);
        return 1;
    }
    if (step != ListEnd) return std::nullopt;
    handlers_.list(std::exchange(client.paths, {}), *client.listStarted);
    client.listStarted.reset();
    return 1;
}

} // namespace vk
