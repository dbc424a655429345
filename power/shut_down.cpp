#include "power/shut_down.h"

namespace vk {

void ShutDown::PowerAction() {
    switch (base_.settings.values.ShutDownMode) {
    case 0:
        base_.log.WriteDebugLog("Complete Shutdown initiated");
        return CompleteShutdown();
    case 1:
        return Ask(PowerWish::Hibernate, "hibernate");
    case 2:
        return Ask(PowerWish::Suspend, "go into standby");
    default:
        return;
    }
}

void ShutDown::CompleteShutdown(bool again) {
    Ask(PowerWish::PowerOff, "be turned off", again);
}

// What is remembered is on the disk before: how long the machine waits is not up to this system.
void ShutDown::Ask(PowerWish wish, const char* what, bool again) {
    if (asked_) return;
    asked_ = true;
    base_.settings.Finish();
    const std::weak_ptr<int> alive = alive_;
    power_.Ask(wish, [this, alive, wish, what, again](const std::string& refusal) {
        if (alive.expired()) return;
        asked_ = false;
        if (!refusal.empty()) return Refused(what, refusal, again);
        if (wish == PowerWish::PowerOff) end_();
    });
}

void ShutDown::Refused(const char* what, const std::string& why, bool again) {
    const std::string text = "The machine could not " + std::string(what) + ": " + why;
    base_.log.WriteDebugLog(text);
    if (!again) base_.dialogs.ShowMessage(text, {}, MessageKind::Warning);
}

} // namespace vk
