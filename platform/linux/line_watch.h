// A thread that waits for the modem lines of a serial port.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace vk {

/// Calls `changed` on its own thread each time `wait` has returned true, until this object goes, or
/// until `wait` returns false by itself: then `fails` is called. `wait` must come back from a
/// signal that interrupts it; those of the process do not reach it.
class LineWatch {
  public:
    LineWatch(std::function<bool()> wait, std::function<void()> changed,
              std::function<void()> fails);
    ~LineWatch();
    LineWatch(const LineWatch&) = delete;
    LineWatch& operator=(const LineWatch&) = delete;

  private:
    std::atomic<bool> ending_ = false, ended_ = false;
    std::thread thread_;
};

/// Waits until carrier detect, clear to send or data set ready of an open port changes. False when
/// it was interrupted, or the driver cannot.
bool WaitForLines(int port);

} // namespace vk
