// Starting programs.
#pragma once

#include "core/base.h"
#include "hosting/app_windows.h"

#include <string>

namespace vk {

/// How a start came out.
enum class Launched {
    Window, ///< it has a window
    Ended,  ///< it has ended without one, or there was nothing to start
    None,   ///< it runs, and its time to show one is over
    Stopped ///< the user, or the system's end, would not wait
};

class Launcher {
  public:
    /// A program on an old machine's cold disk takes its time; milliseconds.
    static constexpr int PatienceMs = 60'000;
    /// Between two looks for its window where nothing tells of it; milliseconds.
    static constexpr int LookMs = 100;

    /// All of it outlives this object.
    Launcher(Base& base, Programs& programs, const AppWindows& windows)
        : base_(base), programs_(programs), windows_(windows) {}

    /// Starts a program of the user's; `show` is a number of ShowWindow. Its number, 0 when it
    /// could not be started.
    ProgramId OpenProgram(const std::string& commandLine, int show) const;
    /// Lets events run until it is ready for its user: until it has a window.
    Launched WaitForInputIdle(ProgramId program) const;
    /// Another window may be there: the wait looks at once.
    void Look() { look_ = true; }

  private:
    Base& base_;
    Programs& programs_;
    const AppWindows& windows_;
    mutable bool look_ = false;
};

} // namespace vk
