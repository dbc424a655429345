#include "video/disc/dvd_control.h"

#include "platform/files.h"
#include "video/disc/disc_place.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vk {

DVD::DVD(Needs needs) : n_(needs) {
    Disc().onNotify = [this](int code, std::int64_t first, std::int64_t second) {
        Notified(code, first, second);
    };
}

// Loudness ---------------------------------------------------------------------------------------

void DVD::Mute(bool on) {
    if (on != n_.loudness.Muted()) n_.loudness.domute();
}

void DVD::incvolume(int steps) {
    for (int step = 0; step < std::abs(steps); ++step)
        steps > 0 ? volumeup() : volumedown();
}

// Playing ----------------------------------------------------------------------------------------

bool DVD::renderit() const {
    return IsDisc(directory_);
}

bool DVD::Play() {
    if (!renderit()) return false;
    if (!std::exchange(DVDPauseOn, false)) {
        setdvd();
        mouse_ = true;
    }
    n_.inner.Play();
    awake_ = true;
    return true;
}

void DVD::stopdvd() {
    DVDPauseOn = awake_ = false;
    disablemouse();
    n_.inner.Stop();
}

void DVD::pause() {
    if (state() == PlayStateValue::Playing && Allowed(uop::PauseOn)) hold();
}

void DVD::hold() {
    DVDPauseOn = true;
    n_.inner.Pause();
}

void DVD::eject() {
    stopdvd();
    n_.volumes.Eject(n_.volumes.DriveOf(directory_));
}

// On the disc ------------------------------------------------------------------------------------

bool DVD::Allowed(int flag) const {
    if (CheckUOPValid(flag)) return true;
    if (onRefused) onRefused();
    return false;
}

void DVD::Skip(int flag, int seconds) {
    if (!Allowed(flag)) return;
    const double wanted = n_.inner.CurrentPosition() + seconds;
    if (wanted < n_.inner.Duration()) n_.inner.CurrentPosition(std::max(wanted, 0.0));
}

void DVD::nextchapter() {
    if (Allowed(uop::NextChapter)) Disc().NextChapter();
}

void DVD::prevchapter() {
    if (Allowed(uop::PreviousChapter)) Disc().PreviousChapter();
}

void DVD::menu() {
    if (Allowed(uop::RootMenu)) Disc().RootMenu();
}

void DVD::Press(DvdKey key) {
    if (Allowed(uop::Buttons)) Disc().Press(key);
}

bool DVD::touch(int x, int y) {
    const auto [left, top, width, height] = box_;
    const bool inside = x >= left && x < left + width && y >= top && y < top + height;
    if (!mouse_ || !inside || !InMenu()) return false;
    Disc().Touch(double(x - left) / width, double(y - top) / height);
    return true;
}

void DVD::Notified(int code, std::int64_t first, std::int64_t second) {
    const auto status = StatusOf(code, first, second);
    if (!status) return;
    text_ = status->text;
    if (DVDStatusCode) DVDStatusCode(*status);
    if (onPosted) onPosted(*status);
}

} // namespace vk
