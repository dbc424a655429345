#include "platform/linux/vlc/film_session.h"

#include "platform/dvd_events.h"
#include "platform/linux/vlc/disc_angles.h"
#include "platform/linux/vlc/film_shape.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace vk {

namespace {

constexpr int LargestSide = 8192, MostAngles = 9;
constexpr int ShapeEvery = 25; // pictures: broadcasts change their shape on the way

constexpr libvlc_event_e Heard[] = {
    libvlc_MediaPlayerLengthChanged, libvlc_MediaPlayerTimeChanged,
    libvlc_MediaPlayerEndReached,    libvlc_MediaPlayerEncounteredError,
    libvlc_MediaPlayerESAdded,       libvlc_MediaPlayerESDeleted,
    libvlc_MediaPlayerESSelected,    libvlc_MediaPlayerTitleChanged,
    libvlc_MediaPlayerPlaying};

FilmTracks ListOf(libvlc_track_description_t* first, int chosen) {
    FilmTracks tracks;
    for (const auto* each = first; each; each = each->p_next)
        if (each->i_id != FilmTrack::None)
            tracks.all.push_back({each->i_id, each->psz_name ? each->psz_name : ""});
    if (first) libvlc_track_description_list_release(first);
    tracks.chosen = chosen;
    return tracks;
}

// What is read ahead of a disc; milliseconds. A machine that stands still for longer makes libVLC
// throw all of that away, and since a menu is read only once, the frame of its button with it.
constexpr const char* DiscAhead = ":disc-caching=1000";

} // namespace

// Opening and closing ----------------------------------------------------------------------------

void FilmSession::Open(VlcLibrary& library, const FilmSource& source) {
    source_ = source;
    source.disc ? ReadIndex() : static_cast<void>(fileShape_ = ShapeOfFilm(source.path));
    if (!abandoned_) library_ = library.Get();
    if (library_) {
        const std::string disc = "dvd://" + source.path;
        media_.reset(source.disc ? libvlc_media_new_location(library_.get(), disc.c_str())
                                 : libvlc_media_new_path(library_.get(), source.path.c_str()));
    }
    if (media_) player_.reset(libvlc_media_player_new_from_media(media_.get()));
    if (!player_) return Tell([](FilmNotes& notes) { notes.failed = true; });
    const double entry = source.startSeconds > 0 ? Entry(source.startSeconds) : 0;
    if (entry > 0)
        libvlc_media_add_option(media_.get(), (":start-time=" + std::to_string(entry)).c_str());
    if (source.disc) libvlc_media_add_option(media_.get(), DiscAhead);
    Listen();
    if (libvlc_media_player_play(player_.get()) != 0)
        Tell([](FilmNotes& notes) { notes.failed = true; });
}

double FilmSession::Entry(double seconds) {
    if (!source_.disc && !std::exchange(keysRead_, true)) keys_ = KeyPicturesOf(source_.path);
    return keys_ ? keys_->Near(seconds).value_or(seconds) : seconds;
}

void FilmSession::ReadIndex() {
    const DiscIndex index = ReadDiscIndex(source_.path);
    const std::lock_guard lock(mutex_);
    index_ = index;
}

DiscIndex FilmSession::Index() const {
    const std::lock_guard lock(mutex_);
    return index_;
}

void FilmSession::Seek(double seconds) {
    if (!player_) return;
    const double entry = Entry(seconds);
    if (entry < 0) return Tell([](FilmNotes& notes) { notes.openAgain = true; });
    libvlc_media_player_set_time(player_.get(), std::llround(entry * 1000));
}

void FilmSession::Listen() {
    libvlc_video_set_callbacks(player_.get(), &FilmSession::OnLock, nullptr,
                               &FilmSession::OnDisplay, this);
    libvlc_video_set_format_callbacks(player_.get(), &FilmSession::OnFormat, nullptr);
    for (const libvlc_event_e type : Heard)
        libvlc_event_attach(libvlc_media_player_event_manager(player_.get()), type,
                            &FilmSession::OnEvent, this);
}

void FilmSession::Close() {
    if (player_) libvlc_media_player_stop(player_.get());
    player_.reset();
    media_.reset();
    library_.reset();
    keys_.reset();
}

// Notes ------------------------------------------------------------------------------------------

template<class Change> void FilmSession::Tell(Change change) {
    {
        const std::lock_guard lock(mutex_);
        change(notes_);
        if (abandoned_ || std::exchange(posted_, true)) return;
    }
    ui_.Post([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (self && self->heed_) self->heed_();
    });
}

FilmNotes FilmSession::TakeNotes() {
    const std::lock_guard lock(mutex_);
    posted_ = false;
    FilmNotes taken = notes_;
    notes_ = {.lengthMs = taken.lengthMs};
    if (frozen_) taken.picture = false;
    return taken;
}

std::shared_ptr<const FilmPicture> FilmSession::Picture() {
    auto picture = frames_->Take();
    seen_ = seen_ || picture;
    return picture;
}

void FilmSession::Abandon() {
    heed_ = nullptr;
    const std::lock_guard lock(mutex_);
    abandoned_ = true;
}

void FilmSession::OnEvent(const libvlc_event_t* event, void* self) {
    static_cast<FilmSession*>(self)->Note(*event);
}

void FilmSession::Note(const libvlc_event_t& event) {
    Tell([&](FilmNotes& notes) {
        switch (event.type) {
        case libvlc_MediaPlayerLengthChanged:
            notes.lengthMs = event.u.media_player_length_changed.new_length;
            break;
        case libvlc_MediaPlayerTimeChanged:
            notes.timeMs = event.u.media_player_time_changed.new_time;
            break;
        case libvlc_MediaPlayerEndReached:
            notes.ended = true;
            break;
        case libvlc_MediaPlayerEncounteredError:
            notes.failed = true;
            break;
        case libvlc_MediaPlayerPlaying:
            playing_ = true;
            break;
        case libvlc_MediaPlayerTitleChanged:
            title_ = event.u.media_player_title_changed.new_title;
            frozen_ = false;
            if (playing_) notes.title = title_;
            break;
        default:
            notes.tracks = true;
        }
    });
}

void FilmSession::ReadTracks() {
    if (!player_) return;
    libvlc_media_player_t* player = player_.get();
    const FilmTracks audio =
        ListOf(libvlc_audio_get_track_description(player), libvlc_audio_get_track(player));
    const FilmTracks subtitles =
        ListOf(libvlc_video_get_spu_description(player), libvlc_video_get_spu(player));
    const int angle = DiscAngles::Current();
    {
        const std::lock_guard lock(mutex_);
        audio_ = audio;
        subtitles_ = subtitles;
        angle_ = angle;
    }
    Tell([](FilmNotes& notes) { notes.tracksRead = true; });
}

// libVLC does not report it of all that is chosen.
void FilmSession::Choose(TrackKind kind, int id) {
    if (!player_) return;
    switch (kind) {
    case TrackKind::Audio:
        libvlc_audio_set_track(player_.get(), id);
        break;
    case TrackKind::Subtitles:
        libvlc_video_set_spu(player_.get(), id);
        break;
    case TrackKind::Angle:
        DiscAngles::Change(id);
    }
    ReadTracks();
}

FilmTracks FilmSession::Angles() const {
    FilmTracks angles;
    const DiscTitle title = index_.Of(title_);
    if (title_ == 0 || title.angles < 2 || (title.forbidden & uop::Angle)) return angles;
    for (int angle = 1; angle <= std::min(title.angles, MostAngles); ++angle)
        angles.all.push_back({angle, std::to_string(angle)});
    angles.chosen = angle_;
    return angles;
}

FilmTracks FilmSession::Tracks(TrackKind kind) const {
    const std::lock_guard lock(mutex_);
    if (kind == TrackKind::Angle) return Angles();
    return kind == TrackKind::Audio ? audio_ : subtitles_;
}

// Pictures ---------------------------------------------------------------------------------------

// Comes once for each way of decoding that is tried, the last one stays.
unsigned FilmSession::OnFormat(void** self, char* chroma, unsigned* width, unsigned* height,
                               unsigned* pitch, unsigned* lines) {
    constexpr unsigned Buffers = 1;
    if (*width == 0 || *height == 0 || *width > LargestSide || *height > LargestSide) return 0;
    auto& session = *static_cast<FilmSession*>(*self);
    session.Format(*width, *height);
    std::copy_n("RV32", 4, chroma);
    *pitch = static_cast<unsigned>(session.frames_->Stride());
    *lines = static_cast<unsigned>(session.frames_->Lines());
    return Buffers;
}

// What is returned is what the visible part is scaled to.
void FilmSession::Format(unsigned& width, unsigned& height) {
    FilmShape shape =
        Visible(static_cast<int>(width), static_cast<int>(height), ShapeOf(media_.get()));
    if (const double told = ToldShape(); told > 0)
        shape.pixelAspect = told * shape.height / shape.width;
    const PixelSize size = SizeOn(source_.screen, shape);
    frames_->Format(size.width, size.height);
    width = static_cast<unsigned>(size.width);
    height = static_cast<unsigned>(size.height);
    shown_ = 0;
    pixelAspect_ = 0;
    formatAt_ = std::chrono::steady_clock::now();
}

void* FilmSession::OnLock(void* self, void** planes) {
    FrameBuffers::Buffer* buffer = static_cast<FilmSession*>(self)->frames_->Begin();
    planes[0] = buffer ? buffer->memory.data() : nullptr;
    return buffer;
}

void FilmSession::OnDisplay(void* self, void* picture) {
    static_cast<FilmSession*>(self)->Display(static_cast<FrameBuffers::Buffer*>(picture));
}

// libVLC knows it with the first pictures, of which a disc's menu has one alone.
double FilmSession::ToldShape() const {
    const auto told = ShapeOf(media_.get());
    if (told && told->pixelAspect > 0) return told->pixelAspect * told->width / told->height;
    const std::lock_guard lock(mutex_);
    return source_.disc ? index_.Of(title_).shape : fileShape_;
}

// The whole shape is the film's, however many pixels it was scaled to.
bool FilmSession::KnowShape(const FilmPicture& picture) {
    if (pixelAspect_ > 0 && shown_ % ShapeEvery != 0) return true;
    if (const double shape = ToldShape(); shape > 0)
        pixelAspect_ = shape * picture.height / picture.width;
    return pixelAspect_ > 0 || source_.disc ||
           std::chrono::steady_clock::now() - formatAt_ > ShapeWait;
}

void FilmSession::Display(FrameBuffers::Buffer* written) {
    if (!written) return;
    if (frozen_ || !KnowShape(written->picture)) return frames_->Drop(written);
    ++shown_;
    const double likely = LikelyPixelAspect(written->picture.width, written->picture.height);
    if (frames_->Show(written, pixelAspect_ > 0 ? pixelAspect_ : likely, paused_))
        Tell([](FilmNotes& notes) { notes.picture = true; });
}

} // namespace vk
