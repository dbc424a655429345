#include "navigation/engine/log_feed.h"

#include "platform/files.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

namespace vk {

namespace {

// A gap of a recording is not waited for, and sentences without a time come ten a second.
constexpr int LongestPauseMs = 5000, UntimedMs = 100;
constexpr int DayMs = 24 * 60 * 60 * 1000;

/// Milliseconds since midnight of an RMC or GGA sentence; nothing for others.
std::optional<int> MomentOf(std::string_view sentence) {
    if (sentence.size() < 13 || sentence[0] != '$') return std::nullopt;
    const std::string_view kind = sentence.substr(3, 4);
    if (kind != "RMC," && kind != "GGA,") return std::nullopt;
    int time = 0, hundredths = 0;
    const char* const digits = sentence.data() + 7;
    const auto [end, error] = std::from_chars(digits, digits + 6, time);
    if (error != std::errc() || end != digits + 6) return std::nullopt;
    const std::string_view rest = sentence.substr(13);
    if (rest.size() > 2 && rest[0] == '.')
        std::from_chars(rest.data() + 1, rest.data() + 3, hundredths);
    const int seconds = time / 10000 * 3600 + time / 100 % 100 * 60 + time % 100;
    return seconds * 1000 + hundredths * 10;
}

int Between(int from, int to) {
    const int pause = (to - from + DayMs) % DayMs;
    return pause > LongestPauseMs ? 1000 : pause;
}

} // namespace

LogFeed::LogFeed(Clock& clock, std::string path)
    : path_(std::move(path)), timer_(clock.MakeTimer([this] { Play(); })) {}

bool LogFeed::Open() {
    sentences_ = ReadWholeFile(path_).value_or("");
    at_ = 0;
    if (sentences_.empty()) return false;
    timer_->Start(1);
    return true;
}

void LogFeed::Close() {
    timer_->Stop();
}

void LogFeed::Play() {
    if (at_ >= sentences_.size()) at_ = 0;
    const std::size_t from = at_;
    std::optional<int> now, next;
    while (at_ < sentences_.size()) {
        const std::size_t end = std::min(sentences_.find('\n', at_), sentences_.size() - 1);
        next = MomentOf(std::string_view(sentences_).substr(at_, end - at_));
        if (next && now && *next != *now) break;
        if (next) now = next;
        at_ = end + 1;
        if (!now) break;
    }
    const bool timed = now && next && at_ < sentences_.size();
    timer_->Start(timed ? std::max(1, Between(*now, *next)) : now ? 1000 : UntimedMs);
    if (onBytes) onBytes(std::string_view(sentences_).substr(from, at_ - from));
}

} // namespace vk
