#include "power/line_filter.h"

#include <utility>

namespace vk {

void LineFilter::Begin(bool high) {
    timer_->Stop();
    high_ = told_ = high;
    changedMs_ = clock_.TickMs() - SteadyMs;
}

void LineFilter::Changed(bool high) {
    if (high == high_) return;
    const std::int64_t now = clock_.TickMs();
    const bool rested = now - std::exchange(changedMs_, now) >= SteadyMs;
    high_ = high;
    timer_->Stop();
    if (high == told_) return;
    const int wait = high ? (rested ? 0 : SteadyMs) : crankMs_;
    wait > 0 ? timer_->Start(wait) : Settled();
}

void LineFilter::Settled() {
    timer_->Stop();
    if (high_ == told_) return;
    told_ = high_;
    tell_(high_);
}

} // namespace vk
