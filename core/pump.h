// The one way to wait on the interface's thread: everything that runs events inside of an operation
// does so through here.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vk {

/// How a wait came out.
enum class Waited {
    Done,     ///< what was waited for is there
    TimedOut, ///< its time is over
    Ended     ///< somebody ended it: the user leaves, the system ends or goes to sleep
};

/// Knows what waits and for how long, and can end it all. Waits nest (a dialog opens while a list
/// is read): an inner one never lasts longer than what is left to the outer ones, but for what the
/// user answers, whose time the outer ones are given back.
class Pump {
  public:
    static constexpr int NoLimit = -1;
    static constexpr int StepMs = 20;

    struct Wait {
        const char* what; ///< for the log and for `Waiting`; a literal
        /// Asked before the first events are run and after each run of them.
        std::function<bool()> done;
        int timeoutMs = NoLimit; ///< milliseconds
        int stepMs = StepMs;     ///< how often `done` is asked when no event comes; milliseconds
        bool byUser = false;     ///< a dialog: only an answer or the system's end ends it
    };

    /// `clock` outlives this object.
    explicit Pump(Clock& clock) : clock_(clock) {}
    Pump(const Pump&) = delete;
    Pump& operator=(const Pump&) = delete;

    /// Runs events until `done` says so, the time is over, or it is ended.
    Waited Until(const Wait& wait);
    /// Lets `milliseconds` pass with events running; false when that was ended.
    bool Pause(const char* what, int milliseconds);
    /// Lets what is pending be drawn and done, once; false when the system ends.
    bool Turn();
    /// Ends every wait and every work that is under way, but for what the user answers. Until
    /// `Allow` later ones end as they begin, so that what is ended comes to its end.
    void EndAll() { ending_ = true; }
    void Allow() { ending_ = false; }
    /// Ends everything, now and from now on: the system ends.
    void Close() { closed_ = true; }
    bool Closed() const { return closed_; }
    bool Waiting() const { return !waits_.empty(); }
    /// What waits, the outermost first, separated by ", ".
    std::string What() const;

  private:
    friend class Work;
    struct Entry {
        const char* what;
        std::int64_t deadlineMs; ///< of the clock's ticks
        bool byUser;
        bool ended; ///< by its owner
    };
    /// Keeps one entry on the stack for as long as it lives.
    class Scope;
    bool Ended(std::size_t at) const {
        return closed_ || waits_[at].ended || (ending_ && !waits_[at].byUser);
    }

    Clock& clock_;
    std::vector<Entry> waits_; ///< the innermost last
    bool ending_ = false;
    bool closed_ = false;
};

/// Long work on the interface's thread, such as a list that is read: `Pulse` between its pieces
/// keeps the screen alive and tells when to stop. Lives on the stack.
class Work {
  public:
    Work(Pump& pump, const char* what);
    ~Work();
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

    /// Runs events, at most some hundred times a second; false when the work is to end early.
    bool Pulse();
    /// Ends this work, and it alone.
    void End() { pump_.waits_[at_].ended = true; }
    bool Ended() const { return pump_.Ended(at_); }

  private:
    Pump& pump_;
    std::size_t at_;
    std::int64_t lastMs_;
};

} // namespace vk
