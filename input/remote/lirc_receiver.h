// Receivers that the service lircd decodes: it tells each button to all who are connected.
#pragma once

#include "core/line_splitter.h"
#include "input/remote/reconnector.h"
#include "input/remote/remote_receiver.h"
#include "platform/local_stream.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Where lircd listens, unless told otherwise.
inline const std::vector<std::string> LircSockets = {"/run/lirc/lircd", "/var/run/lirc/lircd"};
/// The variable of the environment by which lircd's own clients are told so.
inline constexpr const char* LircVariable = "LIRC_SOCKET_PATH";

/// The button's name in a line of lircd, "0000000000000001 00 KEY_OK name_of_remote": the scan code
/// and the count of repeats in hexadecimal, the button and its remote, one blank between
/// (https://www.lirc.org/html/lircd.html). Nothing for other lines, such as those of replies.
std::optional<std::string> LircButton(std::string_view line);

/// The button's name is the code. The remote's name is not part of it, so that two remotes with the
/// same buttons do the same.
class LircReceiver : public RemoteReceiver {
  public:
    /// lircd sends at most 256 bytes a line.
    static constexpr std::size_t MaxLine = 256;

    /// `sockets` are tried in turn.
    LircReceiver(std::unique_ptr<LocalStream> stream, std::vector<std::string> sockets,
                 Clock& clock, const DebugLog& log);
    bool Start() override;
    void Stop() override;
    bool Ready() const override { return link_.Connected(); }
    void ClearBuff() override;

  private:
    bool Connect();
    void Feed(std::string_view bytes);

    std::unique_ptr<LocalStream> stream_;
    std::vector<std::string> sockets_;
    LineSplitter lines_{MaxLine};
    int cleared_ = 0; ///< how often the buffer was
    Reconnector link_;
};

} // namespace vk
