// The process-wide busy flag, set for the length of an operation.
#pragma once

namespace vk {

/// Sets the flag, and puts back at its end what it was before.
class BusyGuard {
  public:
    explicit BusyGuard(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~BusyGuard() { flag_ = before_; }
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

  private:
    bool& flag_;
    const bool before_;
};

} // namespace vk
