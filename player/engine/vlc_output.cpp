#include "player/engine/vlc_output.h"

#include "platform/linux/vlc_plugins.h"
#include "player/engine/certain_length.h"
#include "player/engine/vlc_media.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace vk {

namespace {

using namespace std::chrono_literals;

constexpr int ParseTimeoutMs = 5000;
// VLC's equaliser takes 12 dB off its input: this preamplifier value is what leaves sound as it is.
constexpr float FlatPreamp = 12.0f;
// So long before the end the other deck opens the next file…
constexpr std::int64_t ArmMs = 3000;
// …and so long before it is let go: what a paused stream takes to sound again.
constexpr auto SwitchLead = 40ms;
constexpr auto SettleTime = 400ms;
constexpr auto LookEvery = 2s;

// libVLC's scale is cubic in amplitude, 100 being full; ours is linear.
int VlcVolume(int volume) {
    return static_cast<int>(std::lround(100.0 * std::cbrt(volume / 255.0)));
}

std::vector<const char*> Options(SoundDevice device) {
    // avformat knows lengths at once and seeks where VLC's own readers guess.
    std::vector<const char*> options{"--no-video", "--no-spu", "--no-osd", "--no-xlib",
                                     "--no-stats", "--no-lua", "--quiet",  "--demux=avformat,any"};
    // The null device swallows what was read ahead, so a track ends early by that much.
    if (device == SoundDevice::None)
        options.insert(options.end(),
                       {"--aout=alsa", "--alsa-audio-device=null", "--file-caching=50"});
    return options;
}

} // namespace

VlcOutput::VlcOutput(std::function<void(const OutputEvent&)> sink,
                     std::function<SoundDevice()> find)
    : sink_(std::move(sink)), find_(std::move(find)), worker_([this] { Work(); }) {}

VlcOutput::~VlcOutput() {
    Wish([](Wishes& wishes) { wishes.quit = true; });
    worker_.join();
}

template<class Change> void VlcOutput::Wish(Change change) {
    const std::lock_guard lock(mutex_);
    change(wishes_);
    dirty_ = true;
    changed_.notify_one();
}

void VlcOutput::Play(std::uint32_t track, const std::string& path) {
    Wish([&](Wishes& wishes) {
        wishes.track = track;
        wishes.path = path;
        wishes.paused = false;
        wishes.seekMs.reset();
    });
}

void VlcOutput::Prepare(std::uint32_t track, const std::string& path) {
    Wish([&](Wishes& wishes) {
        wishes.preparedTrack = track;
        wishes.preparedPath = path;
    });
}

void VlcOutput::SetPaused(bool paused) {
    Wish([&](Wishes& wishes) { wishes.paused = paused; });
}

void VlcOutput::Seek(std::int64_t positionMs) {
    Wish([&](Wishes& wishes) { wishes.seekMs = positionMs; });
}

void VlcOutput::Stop() {
    Play(0, {});
}

void VlcOutput::SetVolume(int volume) {
    Wish([&](Wishes& wishes) { wishes.volume = volume; });
}

void VlcOutput::SetEqualiser(const Equaliser& equaliser) {
    Wish([&](Wishes& wishes) { wishes.equaliser = equaliser; });
}

VlcOutput::Wishes VlcOutput::NextWishes() {
    std::unique_lock lock(mutex_);
    changed_.wait_until(lock, WakeAt(), [this] { return dirty_; });
    dirty_ = false;
    Wishes wishes = wishes_;
    wishes_.seekMs.reset();
    wishes_.volume.reset();
    wishes_.equaliser.reset();
    wishes_.parsed = false;
    return wishes;
}

void VlcOutput::Work() {
    OpenLibrary();
    for (Wishes wishes = NextWishes(); !wishes.quit; wishes = NextWishes()) {
        if (!library_) {
            // Nothing can be played: every track fails, so that the list comes to its end.
            if (wishes.track != std::exchange(track_, wishes.track) && track_ != 0)
                Emit(OutputEvent::Failed);
            lookAt_ = std::chrono::steady_clock::now() + LookEvery;
            continue;
        }
        Carry(wishes);
        Heed(Deck().TakeNotes());
        HeedStandby(Standby().TakeNotes());
        SwitchWhenDue();
        LookForDevice();
    }
    CloseLibrary();
}

void VlcOutput::CloseLibrary() {
    if (!library_) return;
    for (auto& deck : decks_)
        deck->Stop();
    decks_ = {};
    prepared_.reset();
    KeepPlugins();
    library_.reset();
}

void VlcOutput::LookForDevice() {
    const auto now = std::chrono::steady_clock::now();
    if (now < lookAt_) return;
    lookAt_ = now + LookEvery;
    if (find_() != device_) OpenAgain();
}

// The way of playing is another one: the track goes on at its place through a new library.
void VlcOutput::OpenAgain() {
    const std::int64_t placeMs = started_ ? Deck().TimeMs() : 0;
    CloseLibrary();
    armedPath_.clear();
    armedReady_ = false;
    OpenLibrary();
    if (!library_) return;
    ApplyEqualiser(equaliser_);
    ApplyVolume();
    if (track_ == 0 || over_) return;
    started_ = paused_ = volumeApplied_ = false;
    endsAt_.reset();
    if (placeMs > 0 && !seekMs_) seekMs_ = placeMs;
    Deck().Open(MakeVlcMedia(library_, path_), track_);
}

VlcOutput::Moment VlcOutput::WakeAt() const {
    return std::min(lookAt_, SwitchDue().value_or(lookAt_));
}

void VlcOutput::OpenLibrary() {
    device_ = find_();
    lookAt_ = std::chrono::steady_clock::now() + LookEvery;
    const auto options = Options(device_);
    library_.reset(libvlc_new(static_cast<int>(options.size()), options.data()));
    if (!library_) return;
    for (auto& deck : decks_)
        deck = std::make_unique<VlcDeck>(
            library_, [this] { Wish([](Wishes&) {}); },
            [this](std::uint32_t track, std::int64_t timeMs) {
                sink_({OutputEvent::Position, track, timeMs, {}});
            });
}

void VlcOutput::Carry(const Wishes& wishes) {
    if (wishes.volume) {
        volume_ = *wishes.volume;
        ApplyVolume();
    }
    if (wishes.equaliser) ApplyEqualiser(equaliser_ = *wishes.equaliser);
    if (wishes.track != track_) StartTrack(wishes);
    if (wishes.seekMs) seekMs_ = wishes.seekMs;
    wantPaused_ = wishes.paused;
    if (wishes.preparedTrack != preparedTrack_) {
        preparedTrack_ = wishes.preparedTrack;
        PrepareMedia(wishes.preparedPath);
    }
    if (wishes.parsed && prepared_)
        sink_({OutputEvent::Prepared, preparedTrack_, 0,
               VlcMediaFacts(prepared_.get(), preparedPath_)});
    if (!started_ || over_) return;
    CarryPause();
    CarrySeek();
}

void VlcOutput::CarryPause() {
    if (wantPaused_ == paused_) return;
    paused_ = wantPaused_;
    Deck().SetPaused(paused_);
    endsAt_.reset();
    unsettledUntil_ = std::chrono::steady_clock::now() + SettleTime;
}

void VlcOutput::CarrySeek() {
    if (!seekMs_) return;
    Deck().Seek(*std::exchange(seekMs_, {}));
    endsAt_.reset();
    unsettledUntil_ = std::chrono::steady_clock::now() + SettleTime;
}

void VlcOutput::StartTrack(const Wishes& wishes) {
    const bool wasOver = over_;
    track_ = wishes.track;
    path_ = wishes.path;
    started_ = paused_ = over_ = false;
    seekMs_.reset();
    endsAt_.reset();
    if (wasOver && Adopt()) return;
    Disarm();
    if (track_ == 0 || !VlcMediaExists(path_)) {
        Deck().Stop();
        if (track_ != 0) {
            over_ = true;
            Emit(OutputEvent::Failed);
        }
        return;
    }
    certain_ = LengthIsCertain(path_);
    volumeApplied_ = false;
    Deck().Open(prepared_ && preparedPath_ == path_ ? std::move(prepared_)
                                                    : MakeVlcMedia(library_, path_),
                track_);
}

// The deck that waits with this track takes over; the other one plays out its last milliseconds.
bool VlcOutput::Adopt() {
    if (!armedReady_ || armedPath_ != path_) return false;
    armedPath_.clear();
    armedReady_ = false;
    certain_ = LengthIsCertain(path_);
    volumeApplied_ = false;
    Deck().SetTrack(0);
    current_ = 1 - current_;
    Deck().SetTrack(track_);
    ApplyVolume();
    Deck().SetPaused(false);
    Deck().TakeNotes();
    started_ = true;
    unsettledUntil_ = {};
    Emit(OutputEvent::Started, VlcMediaFacts(Deck().Media(), path_, Deck().LengthMs()));
    return true;
}

void VlcOutput::PrepareMedia(const std::string& path) {
    prepared_.reset();
    preparedPath_ = path;
    if (armedPath_ != path) Disarm();
    if (!VlcMediaExists(path)) return;
    prepared_ = MakeVlcMedia(library_, path);
    libvlc_event_attach(libvlc_media_event_manager(prepared_.get()), libvlc_MediaParsedChanged,
                        &VlcOutput::OnParsed, this);
    libvlc_media_parse_with_options(prepared_.get(), libvlc_media_parse_local, ParseTimeoutMs);
}

void VlcOutput::OnParsed(const libvlc_event_t*, void* self) {
    static_cast<VlcOutput*>(self)->Wish([](Wishes& wishes) { wishes.parsed = true; });
}

void VlcOutput::Heed(const VlcNotes& notes) {
    if (track_ == 0 || over_) return;
    if (notes.ended || notes.failed) return HeedEnd(notes);
    if (started_ && notes.timeChanged) HeedTime(notes);
    if (started_ && notes.metaChanged) TellTitle();
    if (!notes.playing || (started_ && !notes.lengthChanged)) return;
    const TrackFacts facts = VlcMediaFacts(Deck().Media(), path_, Deck().LengthMs());
    if (started_) return Emit(OutputEvent::Facts, facts);
    started_ = true;
    ApplyVolume();
    CarryPause();
    CarrySeek();
    Emit(OutputEvent::Started, facts);
    TellTitle();
}

void VlcOutput::TellTitle() {
    const std::string title = VlcStreamTitle(Deck().Media(), path_);
    if (!title.empty()) sink_({OutputEvent::Title, track_, 0, {}, title});
}

void VlcOutput::HeedEnd(const VlcNotes& notes) {
    // Junk may "play" without length or time before it ends.
    over_ = true;
    const bool heard = notes.timeMs > 0 || Deck().LengthMs() > 0;
    Emit(notes.failed || !heard ? OutputEvent::Failed : OutputEvent::Ended);
}

void VlcOutput::HeedTime(const VlcNotes& notes) {
    // A stream that a sound server has just made has the server's own level until now.
    if (!std::exchange(volumeApplied_, true)) ApplyVolume();
    if (!certain_) return; // the file may go on for long behind an estimated end
    const std::int64_t leftMs = Deck().LengthMs() - notes.timeMs;
    if (paused_ || leftMs < 0 || notes.timeAt < unsettledUntil_) return;
    endsAt_ = notes.timeAt + std::chrono::milliseconds(leftMs);
    if (device_ != SoundDevice::Server || leftMs > ArmMs || !prepared_) return;
    libvlc_media_add_option(prepared_.get(), ":start-paused");
    armedPath_ = preparedPath_;
    armedReady_ = false;
    Standby().Open(std::move(prepared_), 0);
}

void VlcOutput::HeedStandby(const VlcNotes& notes) {
    if (!notes.ended && !notes.failed) {
        armedReady_ = armedReady_ || (!armedPath_.empty() && notes.playing);
        return;
    }
    // Played out after a change of decks, or nothing playable.
    armedPath_.clear();
    armedReady_ = false;
    Standby().Stop();
}

void VlcOutput::Disarm() {
    armedPath_.clear();
    armedReady_ = false;
    Standby().Stop();
}

std::optional<VlcOutput::Moment> VlcOutput::SwitchDue() const {
    if (!armedReady_ || !endsAt_ || !started_ || paused_ || over_) return std::nullopt;
    return *endsAt_ - SwitchLead;
}

// The end is told a moment early; the answer is to play the next track, which waits armed.
void VlcOutput::SwitchWhenDue() {
    const auto due = SwitchDue();
    if (!due || std::chrono::steady_clock::now() < *due) return;
    over_ = true;
    Emit(OutputEvent::Ended);
}

void VlcOutput::ApplyVolume() {
    for (const auto& deck : decks_)
        libvlc_audio_set_volume(deck->Player(), VlcVolume(volume_));
}

void VlcOutput::ApplyEqualiser(const Equaliser& equaliser) {
    const VlcEqualiser gains(equaliser.on ? libvlc_audio_equalizer_new() : nullptr);
    if (gains) {
        libvlc_audio_equalizer_set_preamp(gains.get(), FlatPreamp + equaliser.preamp);
        for (unsigned band = 0; band < equaliser.bands.size(); ++band)
            libvlc_audio_equalizer_set_amp_at_index(gains.get(), equaliser.bands[band], band);
    }
    for (const auto& deck : decks_)
        libvlc_media_player_set_equalizer(deck->Player(), gains.get());
}

void VlcOutput::Emit(OutputEvent::Kind kind, const TrackFacts& facts) {
    sink_({kind, track_, 0, facts});
}

} // namespace vk
