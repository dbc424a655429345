#include "input/remote/reconnector.h"

#include <utility>

namespace vk {

Reconnector::Reconnector(Clock& clock, const DebugLog& log, std::string name,
                         std::function<bool()> connect)
    : log_(log), name_(std::move(name)), connect_(std::move(connect)),
      retry_(clock.MakeTimer([this] { Retry(); })) {}

bool Reconnector::Start() {
    Stop();
    const bool connected = connect_();
    if (!connected) retry_->Start(RetryMs);
    return connected;
}

void Reconnector::Lost() {
    log_.WriteDebugLog("Remote receiver lost: " + name_);
    retry_->Start(RetryMs);
}

void Reconnector::Stop() {
    retry_->Stop();
}

void Reconnector::Retry() {
    if (!connect_()) return;
    retry_->Stop();
    log_.WriteDebugLog("Remote receiver found: " + name_);
}

} // namespace vk
