// The clock on Qt's timers and event loop.
#pragma once

#include "platform/clock.h"

namespace vk {

class QtClock : public Clock {
  public:
    DateTime Now() const override;
    std::int64_t TickMs() const override;
    void Sleep(int milliseconds) override;
    void DoEvents(int waitMs) override;
    std::unique_ptr<Timer> MakeTimer(std::function<void()> onTick) override;
};

} // namespace vk
