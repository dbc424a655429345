// The sound of the file that the player plays, decoded a second time: where no server mixes what
// can be heard.
#pragma once

#include "platform/linux/vlc/vlc_handles.h"
#include "visuals/sound/player_link.h"
#include "visuals/sound/sound_ring.h"

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>

namespace vk {

/// Follows the player to about a tenth of a second. Addresses and discs are not opened twice: they
/// are silent here.
class FileInput {
  public:
    /// `ring` outlives this object.
    explicit FileInput(SoundRing& ring);
    ~FileInput();
    FileInput(const FileInput&) = delete;
    FileInput& operator=(const FileInput&) = delete;

    /// To be told every quarter of a second. It may wait some tens of milliseconds.
    void Follow(const PlayerNews& news);

  private:
    using Clock = std::chrono::steady_clock;

    void Open(const PlayerNews& news);
    void Seek(std::int64_t positionMs);
    std::int64_t PositionMs();
    static void OnSound(void* self, const void* samples, unsigned count, std::int64_t due);
    static void OnTime(const libvlc_event_t* event, void* self);

    SoundRing& ring_;
    VlcInstance library_;
    std::string file_;
    std::mutex mutex_;
    std::int64_t timeMs_ = 0; ///< of the file at `timeAt_`
    Clock::time_point timeAt_{};
    Clock::time_point steadyFrom_{}; ///< no look at the place before: it has just been changed
    VlcPlayer player_;               ///< gone first, and its threads with it
};

} // namespace vk
