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

inline constexpr unsigned WM_COMMAND = 273;
inline constexpr unsigned WM_USER = 1024;

/// Destroying it ends what it has started: a player that has been asked to close gets half a second
/// for it, a command line that has not done its work yet none.
class PlayerWindow {
  public:
    virtual ~PlayerWindow() = default;
    /// The main window of that class, 0 when there is none now.
    virtual WindowHandle FindWindow(const std::string& windowClass) = 0;
    /// Sends and waits for the answer; 0 when the window is gone or does not answer in time.
    virtual std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                                     std::int32_t lParam) = 0;
    /// Starts the program hidden in `folder` and waits until it takes messages (or has ended).
    /// False when it could not be started.
    virtual bool StartAndWaitForInputIdle(const std::string& program,
                                          const std::string& folder) = 0;
    /// Runs a command line of the program hidden and returns at once; true when a process number
    /// above 0 came back. `arguments` holds double-quoted paths.
    virtual bool RunHidden(const std::string& program, const std::string& arguments,
                           const std::string& folder) = 0;
};

/// The platform's own adapter. `folder` is the application directory: where players have no window,
/// only the one of that folder is found.
std::unique_ptr<PlayerWindow> MakePlayerWindow(Programs& programs, const std::string& folder);

} // namespace vk
