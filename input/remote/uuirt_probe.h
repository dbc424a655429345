// Whether a USB-UIRT is plugged in.
#pragma once

#include "input/remote/driver_call.h"
#include "input/remote/uuirt_calls.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace vk {

/// Has its driver open it and close it again, on a thread of its own: that may take seconds, or
/// never end.
class UuirtProbe {
  public:
    using Load = std::function<std::unique_ptr<LoadedLibrary>(std::string& reason)>;

    /// An empty `load` stands for a machine without the driver. The first look after a question
    /// waits for the answer up to `patienceMs`.
    UuirtProbe(Load load, int patienceMs)
        : load_(std::move(load)), patienceMs_(patienceMs), driver_(static_cast<bool>(load_)) {}

    /// Asks the driver; false when there is none, or when it has not answered the last question.
    bool Ask();
    /// No answer was seen yet.
    bool Asking() const { return asking_.has_value(); }
    /// Looks for the answer; true once when it is yes.
    bool There();
    /// What is being asked comes to its end by itself.
    void Stop() { asking_.reset(); }

  private:
    using Driver = std::shared_ptr<const UUIRTCalls>;
    struct Asked {
        Driver calls; ///< null: there are none
        bool there = false;
    };
    static Asked Open(const Load& load, Driver calls);

    Load load_;
    int patienceMs_;
    bool driver_;  ///< not known to be missing
    Driver calls_; ///< kept: a vendor's library may not bear being loaded again and again
    std::optional<DriverCall<Asked>> asking_;
};

} // namespace vk
