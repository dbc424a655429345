#include "navigation/engine/sentence_source.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int FirstPauseMs = 1000, LongestPauseMs = 30000;

} // namespace

SentenceSource::SentenceSource(Clock& clock, MakeSentenceFeed make)
    : make_(std::move(make)), retry_(clock.MakeTimer([this] { Try(); })),
      silence_(clock.MakeTimer([this] { FallSilent(); })) {}

// The feed that is there may be the one that tells just now: it is replaced by the timer.
void SentenceSource::Open(const std::string& source, const std::string& serialSettings) {
    Close();
    if (source.empty()) return;
    source_ = source;
    serialSettings_ = serialSettings;
    retry_->Start(1);
    silence_->Start(SilenceMs);
}

void SentenceSource::Close() {
    if (feed_) feed_->Close();
    retry_->Stop();
    silence_->Stop();
    pauseMs_ = 0;
    complained_ = false;
}

void SentenceSource::Try() {
    retry_->Stop();
    feed_ = make_(source_, serialSettings_);
    if (!feed_) {
        if (onLog) onLog("GPS: no receiver is called " + source_);
        return;
    }
    feed_->onBytes = [this](std::string_view bytes) { Heard(bytes); };
    feed_->onGone = [this] { Gone(); };
    if (!feed_->Open()) Gone();
}

void SentenceSource::Heard(std::string_view bytes) {
    pauseMs_ = 0;
    if (std::exchange(complained_, false) && onLog) onLog("GPS: " + source_ + " is back");
    silence_->Start(SilenceMs);
    if (onBytes) onBytes(bytes);
}

void SentenceSource::Gone() {
    if (!std::exchange(complained_, true) && onLog)
        onLog("GPS: " + source_ + ": " + feed_->Failure());
    pauseMs_ = std::clamp(2 * pauseMs_, FirstPauseMs, LongestPauseMs);
    retry_->Start(pauseMs_);
    if (silence_->Enabled()) FallSilent();
}

void SentenceSource::FallSilent() {
    silence_->Stop();
    if (onSilent) onSilent();
}

} // namespace vk
