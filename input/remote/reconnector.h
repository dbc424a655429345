// Devices that go and come: one log line a change, and quiet tries in between.
#pragma once

#include "core/debug_log.h"
#include "platform/clock.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Opens a device, and opens it again after it was lost. One that is missing costs a line with the
/// reason, and another one when that changes. A loose plug costs no lines of found and lost: the
/// device counts as found only once it has proved to work.
class Reconnector {
  public:
    /// Between two tries, in milliseconds.
    static constexpr int RetryMs = 3000;
    /// A device that stays so long is found, in milliseconds.
    static constexpr int HoldMs = 10'000;

    /// `connect` tries once and tells whether the device is there, `why` which device failed
    /// and what for; `name` is for the log.
    Reconnector(Clock& clock, const DebugLog& log, std::string name, std::function<bool()> connect,
                std::function<std::string()> why);

    /// The first try. When it fails the tries go on until `Stop`.
    bool Start();
    /// To be called when the device has given a code.
    void Works();
    /// To be called when the device has gone.
    void Lost();
    void Stop();
    bool Connected() const { return connected_; }

  private:
    void Retry();
    void TellWhy();

    const DebugLog& log_;
    std::string name_;
    std::function<bool()> connect_;
    std::function<std::string()> why_;
    std::string told_; ///< why it could not be opened; empty once it could
    bool connected_ = false;
    bool found_ = false; ///< what the log says, or its reader takes for granted
    std::unique_ptr<Timer> retry_;
    std::unique_ptr<Timer> hold_;
};

} // namespace vk
