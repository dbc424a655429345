// The player's end of the wire: accepts connections and answers requests, without ever waiting for
// a client.
#pragma once

#include "platform/linux/player_socket.h"

#include <poll.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// What the server asks of the player.
struct WireHandlers {
    /// The answer to a message; nothing closes the connection unanswered.
    std::function<std::optional<std::int32_t>(const PlayerRequest&)> message;
    /// A complete list: paths, each ended by a NUL, and when its hand-over began (steady clock,
    /// ns).
    std::function<void(std::string paths, std::int64_t startedNs)> list;
    /// The text that WM_GETTEXT asks for.
    std::function<std::string(const PlayerRequest&)> text = {};
    /// A client has gone, or was closed; as `Asks` has called it.
    std::function<void(std::uint64_t client)> left = {};
};

/// Clients that break the protocol, or do not take their replies, are closed; a client that goes
/// away in the middle of a list leaves nothing behind.
class WireServer {
  public:
    WireServer(const FileDescriptor& listener, WireHandlers handlers)
        : listener_(listener), handlers_(std::move(handlers)) {}

    /// Adds what is to be polled.
    void Collect(std::vector<pollfd>& items) const;
    /// Serves what a poll of `Collect`'s items found.
    void Serve(const std::vector<pollfd>& items);
    /// Closes every connection.
    void CloseAll() { clients_.clear(); }
    std::size_t Clients() const { return clients_.size(); }
    /// Whose message is being answered; no client is called as another one was.
    std::uint64_t Asks() const { return asks_; }

  private:
    struct Client {
        FileDescriptor connection;
        std::uint64_t number = 0;
        std::optional<std::int64_t> listStarted;
        std::string paths;
    };
    void Accept();
    bool ServeClient(Client& client);
    bool Keep(Client& client);
    static bool Reply(const Client& client, std::int32_t result, const std::string& text);
    std::optional<std::int32_t> Answer(Client& client, const PlayerRequest& request,
                                       std::string_view payload);
    std::optional<std::int32_t> TakeList(Client& client, std::int32_t step,
                                         std::string_view payload);

    const FileDescriptor& listener_;
    WireHandlers handlers_;
    std::vector<Client> clients_;
    std::uint64_t accepted_ = 0, asks_ = 0;
};

} // namespace vk
