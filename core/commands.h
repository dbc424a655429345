// The one authority on busy: touch, keys, the remote and the timers ask here before they run
// something on a screen.
#pragma once

#include "core/pump.h"
#include "core/screens.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vk {

/// One command at a time. While one runs, events run in it too, and with them come the wishes for
/// others.
class Commands {
  public:
    /// What becomes of a command that comes while another one runs.
    enum class When {
        Drop,     ///< it is forgotten: the press was meant for what has just changed
        Queue,    ///< it follows, the last one asked for, when its screen is still in front
        Interrupt ///< the same, but before any that is queued, and what waits is ended for it: the
                  ///< user wants to leave
    };
    /// A wish to interrupt that comes sooner than this into a command was meant for what was there
    /// before, and is dropped; milliseconds.
    static constexpr int InterruptMs = 250;

    /// All of it outlives this object.
    Commands(Pump& pump, const Screens& screens, const Clock& clock)
        : pump_(pump), screens_(screens), clock_(clock) {}
    Commands(const Commands&) = delete;
    Commands& operator=(const Commands&) = delete;

    /// Runs `command` if nothing else runs, or does as `when` says; true when it was run now. What
    /// it throws passes through.
    bool Run(When when, const std::function<void()>& command);
    bool Run(const std::function<void()>& command) { return Run(When::Drop, command); }
    /// True while a command runs: a list is being built, a player started. The old name of a flag
    /// that screens may ask.
    bool ListBusy() const { return running_; }
    /// How long the running command has been going, milliseconds; -1 when none is.
    std::int64_t RunningMs() const { return running_ ? clock_.TickMs() - startedMs_ : -1; }
    /// True in a command that ended another one to be run: for those with which leaving off is
    /// enough.
    bool Following() const { return following_; }
    /// Has the command that runs come to its end: nothing in it waits any more.
    void End();
    /// Drops what was to follow: the screens that it was meant for go.
    void Forget() { next_ = {}; }
    /// Lets nothing begin or follow any more: the system ends.
    void Close();

  private:
    void Keep(When when, const std::function<void()>& command);
    void RunNow(const std::function<void()>& command, bool following = false);

    Pump& pump_;
    const Screens& screens_;
    const Clock& clock_;
    std::function<void()> next_;
    std::string nextForm_;   ///< the screen that `next_` was meant for
    bool nextEnded_ = false; ///< for `next_` the one that ran was ended
    std::int64_t startedMs_ = 0;
    bool running_ = false;
    bool following_ = false;
    bool closed_ = false;
};

} // namespace vk
