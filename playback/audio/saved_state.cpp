#include "playback/audio/saved_state.h"

#include <algorithm>
#include <string>

namespace vk {

namespace {

constexpr int SaveEveryMs = 15000;

} // namespace

SavedState::SavedState(Needs needs)
    : n_(needs), timer_(needs.clock.MakeTimer([this] { SaveProgress(); })) {}

void SavedState::Loading(std::int32_t position) {
    timer_->Stop();
    loading_ = true;
    wanted_ = Progress{n_.audio.CurrentTrack, std::max(0, position)};
}

void SavedState::NotStarted() {
    loading_ = false;
    timer_->Start(SaveEveryMs); // it may still come
}

void SavedState::Started(std::int32_t position) {
    loading_ = false;
    wanted_.reset();
    WriteAll(Progress{n_.audio.CurrentTrack, position});
    timer_->Start(SaveEveryMs);
}

void SavedState::StartedLate() {
    WriteAll(wanted_);
}

void SavedState::Stop() {
    loading_ = false;
    timer_->Stop();
}

void SavedState::TrackChanged() {
    WriteProgress({n_.audio.CurrentTrack, 0});
}

void SavedState::SaveProgress() {
    const auto progress = Asked();
    const bool behind = wanted_ && progress && progress->track == wanted_->track &&
                        progress->position < wanted_->position;
    if (progress && !behind) WriteProgress(*progress);
}

std::optional<SavedState::Progress> SavedState::Asked() {
    if (n_.winamp.WinAMP_GetStatus() == "0") return std::nullopt;
    const std::int32_t position = n_.winamp.WinAMP_GetTrackPosition();
    if (position < 0) return std::nullopt;
    return Progress{n_.winamp.WinAMP_gettracknum(), position};
}

// The stopwatch where it runs. Where it does not (paused, another screen in front) the player
// process is asked; when that has gone too, what was wanted or written last is still the best that
// is known.
std::optional<SavedState::Progress> SavedState::Now() {
    if (!loading_ && n_.position.Known())
        return Progress{n_.audio.CurrentTrack, static_cast<std::int32_t>(n_.position.Position())};
    const auto asked = loading_ ? std::nullopt : Asked();
    if (asked) return asked;
    return wanted_ ? wanted_ : written_;
}

void SavedState::WriteProgress(const Progress& progress) {
    wanted_.reset();
    if (written_ == progress) return;
    n_.settings.Write(ChangesTo(progress));
    written_ = progress;
}

// List, track and position are one replacement of the file: whenever the power fails, they belong
// together.
void SavedState::WriteAll(const std::optional<Progress>& progress) {
    auto changes = progress ? ChangesTo(*progress) : std::vector<SettingChange>();
    changes.emplace_back(setting::currentplaylist, n_.audio.ListFile);
    changes.emplace_back(setting::AudioVolumeSerial, n_.audio.VolumeSerial);
    n_.settings.Write(changes);
    written_ = progress;
}

std::vector<SettingChange> SavedState::ChangesTo(const Progress& progress) {
    return {{setting::CurrentPosition, static_cast<double>(progress.position)},
            {setting::CurrentTrack, progress.track}};
}

void SavedState::SaveAll() {
    const auto progress = Now();
    if (progress) wanted_.reset();
    WriteAll(progress);
    n_.settings.ini().WriteINI(n_.settings.File("winamp.ini"), "winamp", "Shuffle",
                               n_.audio.bShuffle ? "1" : "0");
}

} // namespace vk
