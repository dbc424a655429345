// The wire between the player's remote control and the player: a local socket (SOCK_SEQPACKET)
// that bears the name of the window class, one packet a request, one packet a reply. A request is
// a PlayerRequest and, for WM_COPYDATA alone, a payload behind it; all in the machine's byte order,
// as both ends run on one machine.
#pragma once

#include "platform/linux/descriptor.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// The window class of the player, and the name of its socket.
inline constexpr const char* PlayerWindowClass = "Winamp v1.x";

struct PlayerRequest {
    std::uint32_t message = 0;
    std::int32_t wParam = 0;
    std::int32_t lParam = 0;
};

/// A text may follow it, in UTF-8, up to the end of the packet.
struct PlayerReply {
    std::int32_t result = 0;
};

/// A reply as it was received.
struct PlayerAnswer {
    std::int32_t result = 0;
    std::string text;
};

/// What a look at the connection has brought.
struct AnswerTaken {
    std::optional<PlayerAnswer> answer;
    bool gone = false; ///< the other end has closed it, or sends nonsense
};

/// The message that hands a list over, step by step; wParam is a PlayerListStep. Every step is
/// answered by 1, or by 0 when the player does not want the list.
inline constexpr std::uint32_t WM_COPYDATA = 74;

enum PlayerListStep : std::int32_t {
    ListBegin = 0, ///< payload: std::int64_t, steady-clock nanoseconds when the hand-over began
    ListPaths = 1, ///< payload: full paths, each ended by a NUL
    ListEnd = 2    ///< no payload: the list is complete
};

/// Which text WM_GETTEXT asks for, by its lParam.
enum PlayerText : std::int32_t {
    TitleText = 0, ///< the title of a player's window
    FileText = 1   ///< path or address of what plays, bytes as the file system has them
};

/// The longest text of a reply, in bytes: a path fits.
inline constexpr std::size_t PlayerTextLimit = 4096;

/// The longest payload of one packet, in bytes.
inline constexpr std::size_t PlayerPayloadLimit = 60000;

/// Full path of the socket of that class, in a folder that is this user's alone: XDG_RUNTIME_DIR,
/// else one under /tmp, made when it is missing. "" when no such folder can be had. Each
/// application directory has its own player, and so a name of its own, which begins with the class.
/// Without `folder`, where a program from outside finds a player: a link to one that runs.
std::string PlayerSocketPath(const std::string& windowClass, const std::string& folder = {});

/// A listening socket at `path` in the place of whatever was there; closed when it failed.
FileDescriptor ListenAt(const std::string& path);

/// A connection to the socket at `path`; closed when nobody listens. Never waits.
FileDescriptor ConnectTo(const std::string& path);

/// Sends one request; false when it could not be taken at once.
bool SendRequest(const FileDescriptor& connection, const PlayerRequest& request,
                 std::string_view payload);

/// The next reply, waited for `timeoutMs` milliseconds at most.
AnswerTaken TakeAnswer(const FileDescriptor& connection, int timeoutMs);

/// Sends one request and waits for its reply, at most `timeoutMs` milliseconds. Nothing when the
/// other end is gone, hangs or answers out of turn: the connection is of no more use then.
std::optional<std::int32_t> AskPlayer(const FileDescriptor& connection,
                                      const PlayerRequest& request, std::string_view payload,
                                      int timeoutMs);

/// True while the other end has the connection open and no reply waits to be taken.
bool ConnectionAlive(const FileDescriptor& connection);

} // namespace vk
