#include "platform/linux/vlc/vlc_film.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vk {

namespace {

constexpr double Near = 2; // seconds: such a report is of the place that was asked for

} // namespace

VlcFilm::VlcFilm(UiThread& ui) : ui_(ui), worker_([library = library_] { library->Release(); }) {}

VlcFilm::~VlcFilm() {
    Close();
    worker_.Ask([library = library_] { library->Release(); });
}

void VlcFilm::FileName(const std::string& path) {
    Name(path, false);
}

void VlcFilm::Name(const std::string& path, bool disc) {
    Stop();
    path_ = path;
    disc_ = disc;
    wanted_ = -1;
    chosen_.clear();
}

void VlcFilm::Play() {
    if (path_.empty() || state_ == PlayStateValue::Playing) return;
    if (!session_) return Open();
    state_ = PlayStateValue::Playing;
    pauseDue_ = false;
    session_->SetPaused(false, false);
    Ask([](libvlc_media_player_t* player) { libvlc_media_player_set_pause(player, 0); });
}

void VlcFilm::Open() {
    state_ = PlayStateValue::Playing;
    pauseDue_ = false;
    chooseAgain_.clear();
    timeMs_ = lengthMs_ = 0;
    wantedAt_ = std::chrono::steady_clock::now();
    session_ = std::make_shared<FilmSession>(ui_, [this] { Heed(); });
    const FilmSource source{path_, disc_, std::max(0.0, wanted_), screen_};
    worker_.Ask(
        [session = session_, library = library_, source] { session->Open(*library, source); });
    SetLoudness();
}

// At its beginning, with all that was chosen of it.
void VlcFilm::OpenAgain() {
    const bool paused = state_ == PlayStateValue::Paused;
    Close();
    wanted_ = 0;
    Open();
    chooseAgain_ = chosen_;
    if (paused) Pause();
}

void VlcFilm::Pause() {
    if (state_ != PlayStateValue::Playing) return;
    state_ = PlayStateValue::Paused;
    // Another picture is to come yet.
    const bool onItsWay = wanted_ >= 0 || timeMs_ <= 0 || !session_->Seen();
    session_->SetPaused(true, !onItsWay);
    pauseDue_ = !session_->Seen();
    if (!pauseDue_) SendPause();
}

// libVLC would show nothing of a film that was paused before its first picture. What has none is
// paused when it sounds.
void VlcFilm::SendPause() {
    pauseDue_ = false;
    Ask([](libvlc_media_player_t* player) { libvlc_media_player_set_pause(player, 1); });
}

void VlcFilm::Stop() {
    Close();
    state_ = PlayStateValue::Stopped;
    wanted_ = -1;
}

void VlcFilm::Close() {
    if (!session_) return;
    session_->Abandon();
    worker_.Ask([session = std::exchange(session_, nullptr)] { session->Close(); });
}

void VlcFilm::Ask(Call call) {
    if (!session_) return;
    worker_.Ask([session = session_, call = std::move(call)] {
        if (session->Player()) call(session->Player());
    });
}

// Position ---------------------------------------------------------------------------------------

double VlcFilm::CurrentPosition() const {
    return wanted_ >= 0 ? wanted_ : static_cast<double>(std::max<std::int64_t>(0, timeMs_)) / 1000;
}

void VlcFilm::CurrentPosition(double seconds) {
    wanted_ = std::max(0.0, seconds);
    wantedAt_ = std::chrono::steady_clock::now();
    if (!session_) return;
    session_->Thaw();
    worker_.Ask([session = session_, seconds] { session->Seek(std::max(0.0, seconds)); });
}

double VlcFilm::Duration() const {
    return static_cast<double>(std::max<std::int64_t>(0, lengthMs_)) / 1000;
}

// Reports that were on their way when the position was set are of the place before.
void VlcFilm::HeedTime(const FilmNotes& notes) {
    lengthMs_ = notes.lengthMs;
    if (notes.timeMs < 0) return;
    timeMs_ = notes.timeMs;
    const bool there = std::abs(static_cast<double>(timeMs_) / 1000 - wanted_) < Near;
    const bool old = std::chrono::steady_clock::now() - wantedAt_ > SeekTrust;
    if (there || old) wanted_ = -1;
}

// Loudness and tracks ----------------------------------------------------------------------------

void VlcFilm::Volume(int percent) {
    volume_ = std::clamp(percent, 0, 100);
    SetLoudness();
}

void VlcFilm::Mute(bool on) {
    mute_ = on;
    SetLoudness();
}

void VlcFilm::SetLoudness() {
    Ask([volume = volume_, mute = mute_](libvlc_media_player_t* player) {
        libvlc_audio_set_volume(player, volume);
        libvlc_audio_set_mute(player, mute ? 1 : 0);
    });
}

std::vector<FilmTrack> VlcFilm::Tracks(TrackKind kind) const {
    return session_ ? session_->Tracks(kind).all : std::vector<FilmTrack>();
}

int VlcFilm::Track(TrackKind kind) const {
    return session_ ? session_->Tracks(kind).chosen : FilmTrack::None;
}

void VlcFilm::Track(TrackKind kind, int id) {
    if (!session_) return;
    chosen_[kind] = id;
    session_->Thaw();
    worker_.Ask([session = session_, kind, id] { session->Choose(kind, id); });
}

// Each once, as soon as it is there.
void VlcFilm::ChooseAgain() {
    for (const auto& [kind, id] : chosen_) {
        if (!chooseAgain_.contains(kind) || Tracks(kind).empty()) continue;
        chooseAgain_.erase(kind);
        if (Track(kind) != id) Track(kind, id);
    }
}

// Reports ----------------------------------------------------------------------------------------

// What is called may close the film, and open another one.
void VlcFilm::Heed() {
    const auto session = session_;
    if (!session) return;
    const FilmNotes notes = session->TakeNotes();
    if (notes.openAgain && wanted_ < Near) return OpenAgain();
    HeedTime(notes);
    if (notes.tracks || notes.title >= 0) worker_.Ask([session] { session->ReadTracks(); });
    if (notes.title >= 0) dvd_.Navigated(notes.title);
    const auto tell = [&](bool due, const std::function<void()>& event) {
        if (due && event && session == session_) event();
    };
    // The one that was noted may have been taken already, or be written over just now.
    if (notes.picture) picture_ = session->Picture();
    tell(picture_ != nullptr, onPicture);
    picture_ = nullptr;
    if (session != session_) return;
    const bool sounds =
        notes.timeMs > 0 && std::chrono::steady_clock::now() - wantedAt_ > SeekTrust;
    if (pauseDue_ && (session->Seen() || sounds)) SendPause();
    if (notes.tracksRead) ChooseAgain();
    tell(notes.tracksRead, onTracks);
    if (notes.ended && session == session_) dvd_.Ended();
    tell(notes.failed, onFailed); // an end of its own may follow
    tell(notes.ended && !notes.failed, onEnded);
}

} // namespace vk
