// What all receivers are to the system: something that gives code texts.
#pragma once

#include <functional>
#include <string>

namespace vk {

/// One receiver. All on the user-interface thread.
class RemoteReceiver {
  public:
    virtual ~RemoteReceiver() = default;
    /// Opens the device. False when it is not there; a receiver that can come later is waited for.
    virtual bool Start() = 0;
    /// Closes the device and stops waiting for it.
    virtual void Stop() = 0;
    /// True while the device is there.
    virtual bool Ready() const = 0;
    /// Drops what was received and not yet told.
    virtual void ClearBuff() {}

    /// A button's code; equal buttons give equal texts, and a held button gives many. Stopping the
    /// receiver inside is allowed, destroying it is not.
    std::function<void(const std::string& code)> onCode;
};

} // namespace vk
