// What runs as long as the process: the 400 ms supervisor, and the orderly end.
#include "startup/astart.h"

namespace vk {

void astart::Timer1_Timer() {
    timer1_->Stop();
    if (base_.screens.Count() == 0) base_.window.ForceForegroundWindow();
    n_.whole.supervise();
    if (!unloaded_) timer1_->Start(SupervisorMs);
}

void astart::UnRefClass() {
    TrapAndLog(base_.report, "astart.UnRefClass: ", n_.whole.release);
}

void astart::Form_QueryUnload(bool osShutdown) {
    base_.log.WriteDebugLog(osShutdown
                                ? "shutdown initiated by administrative request - os shutdown"
                                : "Velkorandum terminated cleanly by user");
    if (osShutdown) n_.whole.sessionEnds();
}

void astart::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    timer1_->Stop();
    UnRefClass();
    // A start that ended before there were settings leaves none.
    if (!keepRemoteLearning_ && !base_.settings.Get(setting::Version).empty())
        base_.settings.Set(setting::learn, n_.remote.learnText ? n_.remote.learnText() : "0");
    if (base_.settings.values.hidemouse) base_.window.ShowCursor(true);
}

} // namespace vk
