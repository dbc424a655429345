// Turning the machine off, and sending it to sleep.
#pragma once

#include "core/base.h"
#include "platform/power.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace vk {

/// What the machine refuses is told on the screen and in the log, and the system is still there.
class ShutDown {
  public:
    /// `base` and `power` outlive this object. `end` ends the system in good order; called once the
    /// machine has agreed, which waits for that.
    ShutDown(Base& base, Power& power, std::function<void()> end)
        : base_(base), power_(power), end_(std::move(end)) {}
    ShutDown(const ShutDown&) = delete;
    ShutDown& operator=(const ShutDown&) = delete;

    /// What the setting ShutDownMode stands for: 0 turns the machine off, 1 hibernates, 2 sleeps,
    /// others do nothing.
    void PowerAction();
    /// Turns the machine off, whatever the setting says. `again`: the driver has been told of a
    /// refusal before.
    void CompleteShutdown(bool again = false);

  private:
    void Ask(PowerWish wish, const char* what, bool again = false);
    void Refused(const char* what, const std::string& why, bool again);

    Base& base_;
    Power& power_;
    std::function<void()> end_;
    bool asked_ = false;
    std::shared_ptr<int> alive_ = std::make_shared<int>(); ///< the answer may come later
};

} // namespace vk
