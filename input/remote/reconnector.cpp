#include "input/remote/reconnector.h"

#include <utility>

namespace vk {

Reconnector::Reconnector(Clock& clock, const DebugLog& log, std::string name,
                         std::function<bool()> connect, std::function<std::string()> why)
    : log_(log), name_(std::move(name)), connect_(std::move(connect)), why_(std::move(why)),
      retry_(clock.MakeTimer([this] { Retry(); })), hold_(clock.MakeTimer([this] { Works(); })) {}

bool Reconnector::Start() {
    Stop();
    found_ = connected_ = connect_();
    if (connected_) return true;
    TellWhy();
    retry_->Start(RetryMs);
    return false;
}

void Reconnector::TellWhy() {
    const std::string why = why_();
    if (std::exchange(told_, why) != why) log_.WriteDebugLog("Remote receiver not opened: " + why);
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
    if (!connected_) {
        if (!told_.empty()) TellWhy(); // the loss of one that was there is told already
        return;
    }
    told_.clear();
    retry_->Stop();
    hold_->Start(HoldMs);
}

} // namespace vk
