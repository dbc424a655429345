#include "player/engine/vlc_deck.h"

#include <utility>

namespace vk {

VlcDeck::VlcDeck(const VlcInstance& library, std::function<void()> wake,
                 std::function<void(std::uint32_t, std::int64_t)> onTime)
    : wake_(std::move(wake)), onTime_(std::move(onTime)),
      player_(libvlc_media_player_new(library.get())) {
    for (const libvlc_event_e type :
         {libvlc_MediaPlayerPlaying, libvlc_MediaPlayerLengthChanged, libvlc_MediaPlayerTimeChanged,
          libvlc_MediaPlayerEndReached, libvlc_MediaPlayerEncounteredError})
        libvlc_event_attach(libvlc_media_player_event_manager(player_.get()), type,
                            &VlcDeck::OnEvent, this);
}

void VlcDeck::Open(VlcMedia media, std::uint32_t track) {
    // After a natural end the device stays open for the next media.
    if (libvlc_media_player_is_playing(player_.get())) libvlc_media_player_stop(player_.get());
    {
        const std::lock_guard lock(mutex_);
        notes_ = {};
        track_ = track;
    }
    media_ = std::move(media);
    libvlc_event_attach(libvlc_media_event_manager(media_.get()), libvlc_MediaMetaChanged,
                        &VlcDeck::OnEvent, this);
    libvlc_media_player_set_media(player_.get(), media_.get());
    libvlc_media_player_play(player_.get());
}

void VlcDeck::SetTrack(std::uint32_t track) {
    const std::lock_guard lock(mutex_);
    track_ = track;
}

void VlcDeck::Stop() {
    libvlc_media_player_stop(player_.get());
    const std::lock_guard lock(mutex_);
    notes_ = {};
    track_ = 0;
}

void VlcDeck::SetPaused(bool paused) {
    libvlc_media_player_set_pause(player_.get(), paused ? 1 : 0);
}

void VlcDeck::Seek(std::int64_t positionMs) {
    libvlc_media_player_set_time(player_.get(), positionMs);
}

std::int64_t VlcDeck::LengthMs() const {
    return libvlc_media_player_get_length(player_.get());
}

std::int64_t VlcDeck::TimeMs() const {
    return libvlc_media_player_get_time(player_.get());
}

VlcNotes VlcDeck::TakeNotes() {
    const std::lock_guard lock(mutex_);
    const VlcNotes notes = notes_;
    notes_.lengthChanged = notes_.timeChanged = notes_.metaChanged = false;
    return notes;
}

void VlcDeck::OnEvent(const libvlc_event_t* event, void* self) {
    static_cast<VlcDeck*>(self)->Note(*event);
}

void VlcDeck::Note(const libvlc_event_t& event) {
    std::unique_lock lock(mutex_);
    const std::uint32_t track = track_;
    switch (event.type) {
    case libvlc_MediaPlayerPlaying:
        notes_.playing = true;
        break;
    case libvlc_MediaPlayerLengthChanged:
        notes_.lengthChanged = true;
        break;
    case libvlc_MediaMetaChanged:
        notes_.metaChanged = true;
        break;
    case libvlc_MediaPlayerEndReached:
        notes_.ended = true;
        break;
    case libvlc_MediaPlayerEncounteredError:
        notes_.failed = true;
        break;
    case libvlc_MediaPlayerTimeChanged:
        notes_.timeChanged = true;
        notes_.timeMs = event.u.media_player_time_changed.new_time;
        notes_.timeAt = std::chrono::steady_clock::now();
        break;
    default:
        return;
    }
    lock.unlock();
    if (event.type == libvlc_MediaPlayerTimeChanged)
        onTime_(track, event.u.media_player_time_changed.new_time);
    wake_();
}

} // namespace vk
