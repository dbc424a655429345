#include "power/power_events.h"

#include "platform/power.h"

#include <cstdio>
#include <utility>

namespace vk {

namespace {

constexpr const char* Applications = "ExtAppTools";

std::string Hex(long number) {
    char text[2 * sizeof number + 1];
    std::snprintf(text, sizeof text, "%lX", static_cast<unsigned long>(number));
    return text;
}

} // namespace

bool PowerEvents::Broadcast(int event, long data) {
    switch (event) {
    case PBT_APMQUERYSUSPEND:
        APMAlert();
        SuspendHandled = true;
        return true;
    case PBT_APMSUSPEND:
        if (!std::exchange(SuspendHandled, false)) APMAlert();
        base_.log.WriteDebugLog("SUSPEND REQUEST GRANTED - Entering Low Power Mode");
        return false;
    case PBT_APMRESUMECRITICAL:
        Log("PBT_APMRESUMECRITICAL", event, data);
        APMResume();
        takenBack_ = true;
        return false;
    case PBT_APMRESUMESUSPEND: // perhaps behind the other, or without a word before
        Log("PBT_APMRESUME", event, data);
        if (!std::exchange(takenBack_, false)) APMResume();
        return false;
    default:
        return false;
    }
}

void PowerEvents::Log(const char* name, int event, long data) {
    base_.log.WriteDebugLog(std::string(name) + " Detected -  HEX:" + Hex(event) +
                            " LONG:" + std::to_string(event) + " - " + std::to_string(data));
}

// Nothing waits in here but for the disk: the machine waits for this to return.
void PowerEvents::APMAlert() {
    if (base_.state.InSuspend) return;
    for (const auto* part : {&whole_.suspend, &whole_.mute}) // silent, whatever fails before
        TrapAndLog(base_.report, "An error occured in astart.APMAlert ", *part);
    takenBack_ = false;
    watched_ = std::exchange(base_.state.WinampWatched, false);
    base_.state.InSuspend = true;
    base_.log.WriteDebugLog("APMSuspend Complete... Computer suspended.");
    base_.settings.Finish();
}

// As a command, so that no touch falls into it; where another one waits, for a user's answer
// perhaps, inside of that.
void PowerEvents::APMResume() {
    base_.log.WriteDebugLog("Begin APMResume Routines");
    base_.state.InSuspend = SuspendHandled = false;
    const auto takeBack = [this] {
        TrapAndLog(base_.report, "An error occured in astart.APMResume ", [&] { TakeBack(); });
    };
    if (!base_.commands.Run(takeBack)) takeBack();
    base_.log.WriteDebugLog("Finish APMResume Subroutine");
}

void PowerEvents::TakeBack() {
    whole_.resume();
    if (base_.settings.values.hidemouse) base_.window.ShowCursor(false);
    whole_.unmute();
    ComeToFront();
    // As that activates the menu, whichever screen lies over it: a player that was lost in the
    // sleep is missed at once.
    base_.state.WinampWatched |= std::exchange(watched_, false);
}

// A program that is in front stays there, under its tool bar.
void PowerEvents::ComeToFront() {
    if (base_.screens.CurrentForm == Applications && base_.screens.Show(Applications)) return;
    base_.window.SetTopmost(true);
    base_.window.ForceForegroundWindow();
    base_.window.SetTopmost(false);
}

} // namespace vk
