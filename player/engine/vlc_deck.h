// One media player of libVLC, and the notes that libVLC's threads leave about it.
#pragma once

#include "platform/linux/vlc/vlc_handles.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>

namespace vk {

/// What was reported of the media that is open.
struct VlcNotes {
    bool playing = false;
    bool lengthChanged = false; ///< since the last look
    bool timeChanged = false;   ///< since the last look
    bool metaChanged = false;   ///< since the last look
    std::int64_t timeMs = 0;    ///< 0 until it sounded
    std::chrono::steady_clock::time_point timeAt;
    bool ended = false;
    bool failed = false;
};

/// All calls come from one thread. libVLC's threads only take notes and call `wake`.
class VlcDeck {
  public:
    /// `onTime` hears each report of the time, in milliseconds, with the number of the track.
    VlcDeck(const VlcInstance& library, std::function<void()> wake,
            std::function<void(std::uint32_t, std::int64_t)> onTime);

    /// Plays a media in the place of what plays, under that number (0: nobody's yet).
    void Open(VlcMedia media, std::uint32_t track);
    /// The open media is that track from now on.
    void SetTrack(std::uint32_t track);
    /// Closes the media and lets the device go; may wait.
    void Stop();
    void SetPaused(bool paused);
    void Seek(std::int64_t positionMs);
    std::int64_t LengthMs() const;
    std::int64_t TimeMs() const; ///< 0 or less until it sounds
    libvlc_media_t* Media() const { return media_.get(); }
    libvlc_media_player_t* Player() const { return player_.get(); }
    VlcNotes TakeNotes();

  private:
    static void OnEvent(const libvlc_event_t* event, void* self);
    void Note(const libvlc_event_t& event);

    const std::function<void()> wake_;
    const std::function<void(std::uint32_t, std::int64_t)> onTime_;
    std::mutex mutex_;
    VlcNotes notes_;          ///< under the mutex
    std::uint32_t track_ = 0; ///< under the mutex
    VlcMedia media_;
    VlcPlayer player_; ///< last: its end waits for the callbacks
};

} // namespace vk
