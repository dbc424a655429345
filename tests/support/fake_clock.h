// A clock that runs only when told.
#pragma once

#include "platform/clock.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

namespace vk::test {

/// Time moves by `Advance`, `Sleep` and nothing else; timers fire inside `Advance` and `DoEvents`.
class FakeClock : public Clock {
  public:
    explicit FakeClock(DateTime start = {2026, 11, 21, 12, 0, 0, 0, 6}) : start_(start) {}

    DateTime Now() const override {
        const std::int64_t total = StartOfDayMs() + elapsed_;
        const std::int64_t ms = total % DayMs;
        DateTime now = start_;
        now.day += static_cast<int>(total / DayMs);
        now.weekday = static_cast<int>((start_.weekday + total / DayMs) % 7);
        now.hour = static_cast<int>(ms / 3600000);
        now.minute = static_cast<int>(ms / 60000 % 60);
        now.second = static_cast<int>(ms / 1000 % 60);
        now.millisecond = static_cast<int>(ms % 1000);
        return now;
    }
    std::int64_t TickMs() const override { return elapsed_ += workMs; }
    void Sleep(int milliseconds) override {
        elapsed_ += milliseconds;
        slept += milliseconds;
        if (onSleep) onSleep();
    }
    void DoEvents(int waitMs) override {
        ++eventRuns;
        FireDue(elapsed_);
        if (onEvents) onEvents();
        Advance(waitMs);
    }
    std::unique_ptr<Timer> MakeTimer(std::function<void()> onTick) override {
        auto timer = std::make_unique<FakeTimer>(*this, std::move(onTick));
        timers_.push_back(timer.get());
        return timer;
    }

    /// Lets time pass, firing the timers in order as they fall due.
    void Advance(int milliseconds) {
        const std::int64_t end = elapsed_ + milliseconds;
        FireDue(end);
        elapsed_ = std::max(elapsed_, end);
    }
    /// Sets the time of day and date without firing anything, as a user setting the clock does.
    void SetNow(DateTime now) {
        start_ = now;
        jump_ = elapsed_;
    }

    /// How many timers there are, and how many of them are running.
    int Timers() const { return static_cast<int>(timers_.size()); }
    int Running() const {
        return static_cast<int>(std::ranges::count_if(
            timers_, [](const FakeTimer* timer) { return timer->Enabled(); }));
    }

    int workMs = 0;                 ///< milliseconds that pass with each look at `TickMs`
    std::int64_t slept = 0;         ///< milliseconds spent in `Sleep`
    int eventRuns = 0;              ///< calls of `DoEvents`
    std::function<void()> onEvents; ///< runs in every `DoEvents`: what arrives while a loop waits
    std::function<void()> onSleep;

  private:
    static constexpr std::int64_t DayMs = 86400000;

    class FakeTimer : public Timer {
      public:
        FakeTimer(FakeClock& clock, std::function<void()> tick)
            : clock_(clock), tick_(std::move(tick)) {}
        ~FakeTimer() override { std::erase(clock_.timers_, this); }
        void Start(int intervalMs) override {
            interval_ = std::max(1, intervalMs);
            due = clock_.elapsed_ + interval_;
            enabled_ = true;
        }
        void Stop() override { enabled_ = false; }
        bool Enabled() const override { return enabled_; }
        void Fire() {
            due += interval_;
            const auto tick = tick_;
            tick();
        }
        std::int64_t due = 0;

      private:
        FakeClock& clock_;
        std::function<void()> tick_;
        int interval_ = 0;
        bool enabled_ = false;
    };

    std::int64_t StartOfDayMs() const {
        return std::llround(start_.SecondsOfDay() * 1000.0) - jump_;
    }
    void FireDue(std::int64_t until) {
        for (;;) {
            FakeTimer* next = nullptr;
            for (FakeTimer* timer : timers_)
                if (timer->Enabled() && timer->due <= until && (!next || timer->due < next->due))
                    next = timer;
            if (!next) return;
            elapsed_ = std::max(elapsed_, next->due);
            next->Fire();
        }
    }

    DateTime start_;
    mutable std::int64_t elapsed_ = 0;
    std::int64_t jump_ = 0;
    std::vector<FakeTimer*> timers_;
};

} // namespace vk::test
