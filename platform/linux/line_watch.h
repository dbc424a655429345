// A thread that waits for the modem lines of a serial port.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace vk {

/// Calls `changed` on its own thread each time `wait` has returned true, until it returns false or
/// this object goes. `wait` must come back from a signal that interrupts it.
class LineWatch {
  public:
    LineWatch(std::function<bool()> wait, std::function<void()> changed);
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
