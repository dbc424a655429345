// The window of the audio player process, as its remote control sees it: found by class, spoken to
// in messages with one answer each.
#pragma once

#include "platform/programs.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vk {

/// A window of another process; 0 is none.
using WindowHandle = std::uintptr_t;

inline constexpr unsigned WM_GETTEXT = 13;
inline constexpr unsigned WM_COMMAND = 273;
inline constexpr unsigned WM_USER = 1024;

/// What is known of the player now.
enum class PlayerState {
    Gone,     ///< nobody takes messages
    Starting, ///< nor does the one that was started, which still runs
    Silent,   ///< it takes them and has not answered in time
    Answers
};

/// No operation waits, but for the answer to a message, and that no longer than a fifth of a
/// second.
///
/// Destroying it ends what it has started: a player that has been asked to close gets half a second
/// for it, a command line that has not done its work yet none.
class PlayerWindow {
  public:
    virtual ~PlayerWindow() = default;
    /// The main window of that class, 0 when there is none now.
    virtual WindowHandle FindWindow(const std::string& windowClass) = 0;
    /// Sends and waits for the answer; 0 when the window is gone or does not answer in time. Until
    /// a silent one has answered, later messages are sent to it and 0 is their answer at once.
    virtual std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                                     std::int32_t lParam) = 0;
    /// The window's title in UTF-8, in the same way as a message: "3. What plays - Winamp". "" when
    /// there is none.
    virtual std::string Title(WindowHandle window) = 0;
    /// Starts the program hidden in `folder`, unless one that was started before and takes no
    /// messages yet still runs. False when it could not be started.
    virtual bool Start(const std::string& program, const std::string& folder) = 0;
    virtual PlayerState State() = 0;
    /// Ends the player without asking, whether it takes messages or not.
    virtual void Kill() = 0;
    /// Runs a command line of the program hidden and returns at once; true when a process number
    /// above 0 came back. `arguments` holds double-quoted paths.
    virtual bool RunHidden(const std::string& program, const std::string& arguments,
                           const std::string& folder) = 0;
};

/// The platform's own adapter. `folder` is the application directory: where players have no window,
/// only the one of that folder is found.
std::unique_ptr<PlayerWindow> MakePlayerWindow(Programs& programs, const std::string& folder);

} // namespace vk
