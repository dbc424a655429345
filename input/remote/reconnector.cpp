#include "input/remote/reconnector.h"

#include <utility>

namespace vk {

Reconnector::Reconnector(Clock& clock, const DebugLog& log, std::string name,
                         std::function<bool()> connect)
    : log_(log), name_(std::move(name)), connect_(std::move(connect)),
      retry_(clock.MakeTimer([this] { Retry(); })), hold_(clock.MakeTimer([this] { Works(); })) {}

bool Reconnector::Start() {
    Stop();
    found_ = connected_ = connect_();
    if (!connected_) retry_->Start(RetryMs);
    return connected_;
}

void Reconnector::Works() {
    hold_->Stop();
    if (connected_ && !std::exchange(found_, true))
        log_.WriteDebugLog("Remote receiver found: " + name_);
}

void Reconnector::Lost() {
    hold_->Stop();
    connected_ = false;
    if (std::exchange(found_, false)) log_.WriteDebugLog("Remote receiver lost: " + name_);
    retry_->Start(RetryMs);
}

void Reconnector::Stop() {
    connected_ = false;
    retry_->Stop();
    hold_->Stop();
}

void Reconnector::Retry() {
    connected_ = connect_();
    if (!connected_) return;
    retry_->Stop();
    hold_->Start(HoldMs);
}

} // namespace vk
