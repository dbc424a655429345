#include "video/disc/medium_watch.h"

#include <utility>

namespace vk {

namespace {

// "http://…"
bool IsAddress(const std::string& path) {
    return path.find("://") != std::string::npos;
}

} // namespace

MediumWatch::MediumWatch(Needs needs)
    : n_(std::move(needs)), timer_(n_.clock.MakeTimer([this] { Look(); })) {}

void MediumWatch::Watch(const std::string& path) {
    Leave();
    if (path.empty() || IsAddress(path)) return;
    path_ = path;
    // A drive that is no medium of its own is not asked: what cannot be ready cannot go.
    drive_ = n_.volumes.DriveOf(path);
    if (!n_.volumes.IsReady(drive_)) drive_.clear();
    Ask();
    timer_->Start(IntervalMs);
}

void MediumWatch::Ask() {
    askedMs_ = n_.clock.TickMs();
    n_.probe.Ask(path_);
}

// The drive is asked only when its file system has answered, since that may hang.
bool MediumWatch::Gone() const {
    const auto there = n_.probe.Answer();
    if (!there) return n_.clock.TickMs() - askedMs_ >= PatienceMs;
    return !*there || (!drive_.empty() && !n_.volumes.IsReady(drive_));
}

void MediumWatch::Look() {
    if (Gone()) {
        Leave();
        n_.onGone();
    } else if (n_.probe.Answer()) {
        Ask();
    }
}

} // namespace vk
