#include "player/engine/vlc_output.h"

#include "player/engine/vlc_media.h"

#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace vk {

namespace {

constexpr int ParseTimeoutMs = 5000;
// VLC's equaliser takes 12 dB off its input: this preamplifier value is what leaves sound as it is.
constexpr float FlatPreamp = 12.0f;

// libVLC's scale is cubic in amplitude, 100 being full; ours is linear.
int VlcVolume(int volume) {
    return static_cast<int>(std::lround(100.0 * std::cbrt(volume / 255.0)));
}

} // namespace

VlcOutput::VlcOutput(std::function<void(const OutputEvent&)> sink, bool deviceFound)
    : sink_(std::move(sink)), deviceFound_(deviceFound), worker_([this] { Work(); }) {}

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

void VlcOutput::Work() {
    OpenLibrary();
    for (;;) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return dirty_; });
        dirty_ = false;
        const Wishes wishes = wishes_;
        wishes_.seekMs.reset();
        wishes_.volume.reset();
        wishes_.equaliser.reset();
        lock.unlock();
        if (wishes.quit) break;
        Carry(wishes);
        lock.lock();
        const Notes notes = noted_ == track_ ? notes_ : Notes();
        notes_.lengthChanged = notes_.parsed = false;
        lock.unlock();
        Heed(notes);
    }
    if (player_) libvlc_media_player_stop(player_.get());
    prepared_.reset();
    media_.reset();
    player_.reset();
    library_.reset();
}

void VlcOutput::OpenLibrary() {
    // avformat knows lengths at once and seeks where VLC's own readers guess.
    std::vector<const char*> options{"--no-video", "--no-spu", "--no-osd", "--no-xlib",
                                     "--no-stats", "--no-lua", "--quiet",  "--demux=avformat,any"};
    // The null device swallows what was read ahead, so a track ends early by that much.
    if (!deviceFound_)
        options.insert(options.end(),
                       {"--aout=alsa", "--alsa-audio-device=null", "--file-caching=50"});
    library_.reset(libvlc_new(static_cast<int>(options.size()), options.data()));
    if (!library_) return;
    player_.reset(libvlc_media_player_new(library_.get()));
    Attach();
}

void VlcOutput::Attach() {
    constexpr std::array<libvlc_event_e, 5> Events{
        libvlc_MediaPlayerPlaying, libvlc_MediaPlayerLengthChanged, libvlc_MediaPlayerTimeChanged,
        libvlc_MediaPlayerEndReached, libvlc_MediaPlayerEncounteredError};
    for (const libvlc_event_e type : Events)
        libvlc_event_attach(libvlc_media_player_event_manager(player_.get()), type,
                            &VlcOutput::OnVlcEvent, this);
}

void VlcOutput::OnVlcEvent(const libvlc_event_t* event, void* self) {
    static_cast<VlcOutput*>(self)->Note(*event);
}

void VlcOutput::Note(const libvlc_event_t& event) {
    std::unique_lock lock(mutex_);
    switch (event.type) {
    case libvlc_MediaPlayerPlaying:
        notes_.playing = true;
        break;
    case libvlc_MediaPlayerLengthChanged:
        notes_.lengthChanged = true;
        break;
    case libvlc_MediaPlayerEndReached:
        notes_.ended = true;
        break;
    case libvlc_MediaPlayerEncounteredError:
        notes_.failed = true;
        break;
    case libvlc_MediaParsedChanged:
        notes_.parsed = true;
        break;
    case libvlc_MediaPlayerTimeChanged: {
        notes_.sounded = true;
        const std::uint32_t track = noted_;
        lock.unlock();
        return sink_(
            {OutputEvent::Position, track, event.u.media_player_time_changed.new_time, {}});
    }
    default:
        return;
    }
    dirty_ = true;
    changed_.notify_one();
}

void VlcOutput::Carry(const Wishes& wishes) {
    if (wishes.volume) volume_ = *wishes.volume;
    if (wishes.volume) ApplyVolume();
    if (wishes.equaliser) ApplyEqualiser(*wishes.equaliser);
    if (wishes.track != track_) StartTrack(wishes);
    if (wishes.seekMs) seekMs_ = wishes.seekMs;
    wantPaused_ = wishes.paused;
    if (wishes.preparedTrack != preparedTrack_) {
        preparedTrack_ = wishes.preparedTrack;
        PrepareMedia(wishes.preparedPath);
    }
    if (!started_ || over_) return;
    CarryPause();
    if (seekMs_) libvlc_media_player_set_time(player_.get(), *std::exchange(seekMs_, {}));
}

void VlcOutput::CarryPause() {
    if (wantPaused_ == paused_) return;
    paused_ = wantPaused_;
    libvlc_media_player_set_pause(player_.get(), paused_ ? 1 : 0);
}

void VlcOutput::StartTrack(const Wishes& wishes) {
    track_ = wishes.track;
    path_ = wishes.path;
    started_ = paused_ = over_ = false;
    seekMs_.reset();
    const bool playable = track_ != 0 && player_ && VlcMediaExists(path_);
    if (player_ && (!playable || libvlc_media_player_is_playing(player_.get())))
        libvlc_media_player_stop(player_.get());
    {
        const std::lock_guard lock(mutex_);
        notes_ = {};
        noted_ = track_;
        notes_.failed = track_ != 0 && !playable;
    }
    if (!playable) return;
    media_ =
        prepared_ && preparedPath_ == path_ ? std::move(prepared_) : MakeVlcMedia(library_, path_);
    libvlc_media_player_set_media(player_.get(), media_.get());
    libvlc_media_player_play(player_.get());
}

void VlcOutput::PrepareMedia(const std::string& path) {
    prepared_.reset();
    preparedPath_ = path;
    if (!library_ || !VlcMediaExists(path)) return;
    prepared_ = MakeVlcMedia(library_, path);
    libvlc_event_attach(libvlc_media_event_manager(prepared_.get()), libvlc_MediaParsedChanged,
                        &VlcOutput::OnVlcEvent, this);
    libvlc_media_parse_with_options(prepared_.get(), libvlc_media_parse_local, ParseTimeoutMs);
}

void VlcOutput::Heed(const Notes& notes) {
    if (notes.parsed && prepared_)
        sink_({OutputEvent::Prepared, preparedTrack_, 0,
               VlcMediaFacts(prepared_.get(), preparedPath_)});
    if (track_ == 0 || over_) return;
    if (notes.ended || notes.failed) {
        // Junk may "play" without length or time before it ends.
        over_ = true;
        const bool heard = notes.sounded || libvlc_media_player_get_length(player_.get()) > 0;
        return Emit(notes.failed || !heard ? OutputEvent::Failed : OutputEvent::Ended);
    }
    if (!notes.playing || (started_ && !notes.lengthChanged)) return;
    const TrackFacts facts =
        VlcMediaFacts(media_.get(), path_, libvlc_media_player_get_length(player_.get()));
    if (started_) return Emit(OutputEvent::Facts, facts);
    started_ = true;
    ApplyVolume();
    CarryPause();
    if (seekMs_) libvlc_media_player_set_time(player_.get(), *std::exchange(seekMs_, {}));
    Emit(OutputEvent::Started, facts);
}

void VlcOutput::ApplyVolume() {
    if (player_) libvlc_audio_set_volume(player_.get(), VlcVolume(volume_));
}

void VlcOutput::ApplyEqualiser(const Equaliser& equaliser) {
    if (!player_) return;
    if (!equaliser.on) {
        libvlc_media_player_set_equalizer(player_.get(), nullptr);
        return;
    }
    const VlcEqualiser gains(libvlc_audio_equalizer_new());
    libvlc_audio_equalizer_set_preamp(gains.get(), FlatPreamp + equaliser.preamp);
    for (unsigned band = 0; band < equaliser.bands.size(); ++band)
        libvlc_audio_equalizer_set_amp_at_index(gains.get(), equaliser.bands[band], band);
    libvlc_media_player_set_equalizer(player_.get(), gains.get());
}

void VlcOutput::Emit(OutputEvent::Kind kind, const TrackFacts& facts) {
    sink_({kind, track_, 0, facts});
}

} // namespace vk
