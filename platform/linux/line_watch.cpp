#include "platform/linux/line_watch.h"

#include <pthread.h>
#include <sys/ioctl.h>

#include <chrono>
#include <csignal>

namespace vk {

namespace {

constexpr auto SignalStep = std::chrono::milliseconds(1);

// Does nothing but interrupt; a number that no library is known to use.
int WakeSignal() {
    static const int number = [] {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        ::sigaction(SIGRTMAX - 2, &action, nullptr);
        return SIGRTMAX - 2;
    }();
    return number;
}

} // namespace

LineWatch::LineWatch(std::function<bool()> wait, std::function<void()> changed) {
    WakeSignal(); // ready before it may be sent
    thread_ = std::thread([this, wait = std::move(wait), changed = std::move(changed)] {
        while (!ending_ && wait())
            if (!ending_) changed();
        ended_ = true;
    });
}

// The signal may come just before the wait begins, so that one may not be enough.
LineWatch::~LineWatch() {
    ending_ = true;
    while (!ended_) {
        ::pthread_kill(thread_.native_handle(), WakeSignal());
        std::this_thread::sleep_for(SignalStep);
    }
    thread_.join();
}

bool WaitForLines(int port) {
    return ::ioctl(port, TIOCMIWAIT, TIOCM_CD | TIOCM_CTS | TIOCM_DSR) == 0;
}

} // namespace vk
