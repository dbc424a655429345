#include "visuals/sound/player_link.h"

#include "platform/player_window.h"

namespace vk {

namespace {

constexpr int AnswerMs = 200;
constexpr PlayerRequest Status{WM_USER, 0, 104}, Position{WM_USER, 0, 105},
    File{WM_GETTEXT, 0, FileText};
constexpr std::int32_t Playing = 1;

} // namespace

// An answer out of turn would be taken for another one: the connection begins anew.
bool PlayerLink::Ask(const PlayerRequest& request, PlayerAnswer& answer) {
    if (!connection_ || !SendRequest(connection_, request, {})) return false;
    const AnswerTaken taken = TakeAnswer(connection_, AnswerMs);
    if (!taken.answer)
        connection_.Close();
    else
        answer = *taken.answer;
    return taken.answer.has_value();
}

bool PlayerLink::Look() {
    if (!connection_) connection_ = ConnectTo(path_);
    if (!connection_) return false;
    PlayerAnswer status, file, position;
    if (!Ask(Status, status) || !Ask(File, file) || !Ask(Position, position)) {
        connection_ = ConnectTo(path_);
        return static_cast<bool>(connection_);
    }
    news_ = {status.result == Playing, position.result, file.text};
    return true;
}

} // namespace vk
