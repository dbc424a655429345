#include "core/pump.h"

#include <algorithm>
#include <limits>

namespace vk {

namespace {

constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t PulseMs = 5;

} // namespace

class Pump::Scope {
  public:
    Scope(Pump& pump, const Wait& wait)
        : pump_(pump), byUser_(wait.byUser), begunMs_(pump.clock_.TickMs()) {
        std::int64_t deadline = wait.timeoutMs < 0 ? Never : begunMs_ + wait.timeoutMs;
        if (!byUser_ && !pump_.waits_.empty())
            deadline = std::min(deadline, pump_.waits_.back().deadlineMs);
        pump_.waits_.push_back({wait.what, deadline, byUser_, false});
    }
    ~Scope() {
        pump_.waits_.pop_back();
        if (byUser_) GiveBack(pump_.clock_.TickMs() - begunMs_);
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

  private:
    void GiveBack(std::int64_t milliseconds) {
        for (Entry& wait : pump_.waits_)
            if (wait.deadlineMs != Never) wait.deadlineMs += milliseconds;
    }

    Pump& pump_;
    bool byUser_;
    std::int64_t begunMs_;
};

Waited Pump::Until(const Wait& wait) {
    const std::size_t at = waits_.size();
    const Scope scope(*this, wait);
    for (;;) {
        if (wait.done()) return Waited::Done;
        if (Ended(at)) return Waited::Ended;
        const std::int64_t left = waits_[at].deadlineMs - clock_.TickMs();
        if (left <= 0) return Waited::TimedOut;
        clock_.DoEvents(static_cast<int>(std::min<std::int64_t>(left, std::max(1, wait.stepMs))));
    }
}

bool Pump::Pause(const char* what, int milliseconds) {
    return Until({what, [] { return false; }, milliseconds, milliseconds}) != Waited::Ended;
}

bool Pump::Turn() {
    if (closed_) return false;
    const Scope scope(*this, {.what = "a turn of events", .done = {}});
    clock_.DoEvents(0);
    return !closed_;
}

std::string Pump::What() const {
    std::string all;
    for (const Entry& wait : waits_)
        all += (all.empty() ? "" : ", ") + std::string(wait.what);
    return all;
}

Work::Work(Pump& pump, const char* what)
    : pump_(pump), at_(pump.waits_.size()), lastMs_(pump.clock_.TickMs() - PulseMs) {
    const std::int64_t deadline = pump_.waits_.empty() ? Never : pump_.waits_.back().deadlineMs;
    pump_.waits_.push_back({what, deadline, false, false});
}

Work::~Work() {
    pump_.waits_.pop_back();
}

bool Work::Pulse() {
    const std::int64_t now = pump_.clock_.TickMs();
    if (now - lastMs_ >= PulseMs && !Ended()) {
        lastMs_ = now;
        pump_.clock_.DoEvents(0);
    }
    return !Ended() && now < pump_.waits_[at_].deadlineMs;
}

} // namespace vk
