#include "platform/linux/player_connection.h"

#include <sys/socket.h>

#include <utility>

namespace vk {

bool PlayerConnection::Open(const std::string& path) {
    socket_ = ConnectTo(path);
    owed_ = 0;
    return static_cast<bool>(socket_);
}

void PlayerConnection::Close() {
    socket_.Close();
    owed_ = 0;
}

bool PlayerConnection::Alive() {
    while (socket_ && owed_ > 0) {
        const AnswerTaken taken = TakeAnswer(socket_, 0);
        if (taken.gone) Close();
        if (!taken.answer) break;
        --owed_;
    }
    return ConnectionAlive(socket_);
}

PlayerAnswer PlayerConnection::Ask(const PlayerRequest& request, int timeoutMs) {
    // Its buffer may be full of what was sent in vain: then this is lost as well.
    if (!Alive() || !SendRequest(socket_, request, {})) return {};
    if (owed_++ > 0) return {};
    const AnswerTaken taken = TakeAnswer(socket_, timeoutMs);
    if (taken.gone) Close();
    if (taken.answer) owed_ = 0;
    return taken.answer.value_or(PlayerAnswer{});
}

pid_t PlayerConnection::Process() const {
    ucred peer{};
    socklen_t size = sizeof peer;
    if (!socket_ || ::getsockopt(socket_.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0)
        return 0;
    return peer.pid;
}

} // namespace vk
