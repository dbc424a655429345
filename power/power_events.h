// Sleep and waking, as the machine's broadcasts tell of them.
#pragma once

#include "core/base.h"

#include <functional>

namespace vk {

class PowerEvents {
  public:
    /// What the whole system does then.
    struct Whole {
        std::function<void()> suspend; ///< what plays saves and pauses, devices are let go
        std::function<void()> mute;
        std::function<void()> resume; ///< devices are taken back, what played goes on
        std::function<void()> unmute; ///< with the safe volume, where that is wanted
    };
    PowerEvents(Base& base, Whole whole) : base_(base), whole_(std::move(whole)) {}

    /// Does what a `PowerBroadcast` asks for; true when that is all that is to be done with it.
    /// When it returns from what leads to a sleep, everything is on the disk.
    bool Broadcast(int event, long data);
    /// Asleep, and awake again. The machine may be asleep for long in between, or not at all.
    void APMAlert();
    void APMResume();

  private:
    void Log(const char* name, int event, long data);
    void TakeBack();
    void ComeToFront();

    Base& base_;
    Whole whole_;
    bool SuspendHandled = false; ///< the query was answered: the suspend itself is no news
    bool takenBack_ = false;     ///< by the message of a critical waking
    bool watched_ = false;       ///< the player process, before the sleep
};

} // namespace vk
