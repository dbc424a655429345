#include "input/remote/uuirt_probe.h"

namespace vk {

UuirtProbe::Asked UuirtProbe::Open(const Load& load, Driver calls) {
    std::string reason;
    auto library = calls ? nullptr : load(reason);
    if (library) calls = std::make_shared<const UUIRTCalls>(std::move(library));
    if (!calls || !calls->Complete()) return {};
    const UUIRTCalls::Handle device = calls->UUIRTOpen();
    const bool there = device != UUIRTCalls::InvalidHandle();
    if (there) calls->UUIRTClose(device);
    return {std::move(calls), there};
}

bool UuirtProbe::Ask() {
    if (asking_ || !driver_) return false;
    asking_.emplace([load = load_, calls = calls_] { return Open(load, calls); });
    return true;
}

bool UuirtProbe::There() {
    if (!asking_ || !asking_->Done(patienceMs_)) return false;
    const Asked asked = asking_->Take();
    asking_.reset();
    calls_ = asked.calls;
    driver_ = calls_ != nullptr;
    return asked.there;
}

} // namespace vk
