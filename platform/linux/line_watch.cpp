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

// A child that ends must not end the wait.
void TakeNoOtherSignal() {
    sigset_t others;
    ::sigfillset(&others);
    ::sigdelset(&others, WakeSignal());
    ::pthread_sigmask(SIG_SETMASK, &others, nullptr);
}

} // namespace

LineWatch::LineWatch(std::function<bool()> wait, std::function<void()> changed,
                     std::function<void()> fails) {
    WakeSignal(); // ready before it may be sent
    thread_ = std::thread(
        [this, wait = std::move(wait), changed = std::move(changed), fails = std::move(fails)] {
            TakeNoOtherSignal();
            while (!ending_ && wait())
                if (!ending_) changed();
            if (!ending_) fails();
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
