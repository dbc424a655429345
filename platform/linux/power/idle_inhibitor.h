// Keeps the desktop and the machine from taking a watched screen for an idle one
// (https://specifications.freedesktop.org/idle-inhibit-spec/latest, and "idle" of logind's
// Inhibit).
#pragma once

#include "platform/linux/dbus/dbus_link.h"
#include "platform/linux/descriptor.h"
#include "platform/screen_saver.h"

#include <QTimer>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vk {

/// The session's bus as the environment names it, "" where there is none.
std::string SessionBusAddress();

/// Each `Reset` holds both off for a while. The buses are gone to by the first one; what does not
/// answer is asked again by the next. All of it on the user-interface thread.
class IdleInhibitor : public ScreenSaver {
  public:
    /// Somewhat longer than from one `Reset` to the next.
    static constexpr int HoldMs = 45'000;

    /// Addresses of the session's and of the system's bus; a session without one has "", and the
    /// system's own is "". `display` is reset as well, and outlives this object.
    IdleInhibitor(ScreenSaver& display, const std::string& session, const std::string& system = {},
                  int holdMs = HoldMs);
    void Reset() override;
    /// What was asked for is granted: by the session, by the machine.
    bool SessionHeld() const { return cookie_.has_value(); }
    bool MachineHeld() const { return static_cast<bool>(lock_); }

  private:
    void AskSession();
    void AskMachine();
    void LetGo();

    ScreenSaver& display_;
    QTimer hold_;
    std::optional<std::uint32_t> cookie_; ///< the session's
    FileDescriptor lock_;                 ///< the machine's
    bool sessionAsked_ = false, machineAsked_ = false;
    DBusLink system_;                   ///< behind what its last answers change
    std::unique_ptr<DBusLink> session_; ///< null without a session
};

} // namespace vk
