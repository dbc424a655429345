// Keeps the display awake while somebody watches a film.
#pragma once

#include "platform/clock.h"
#include "platform/screen_saver.h"

#include <cstdint>

namespace vk {

class FilmWatch {
  public:
    /// How often the saver is told, and how long a film may be paused until it is no more;
    /// milliseconds.
    static constexpr std::int64_t EveryMs = 30'000, PausedMs = 600'000;

    /// Both outlive this object.
    FilmWatch(const Clock& clock, ScreenSaver& saver) : clock_(clock), saver_(saver) {}

    /// About once a second while a film is in front.
    void Look(bool playing) {
        const std::int64_t now = clock_.TickMs();
        if (playing || playedMs_ < 0) playedMs_ = now;
        const bool due = toldMs_ < 0 || now - toldMs_ >= EveryMs;
        if (!due || now - playedMs_ > PausedMs) return;
        toldMs_ = now;
        saver_.Reset();
    }

  private:
    const Clock& clock_;
    ScreenSaver& saver_;
    std::int64_t playedMs_ = -1, toldMs_ = -1; ///< of the clock's ticks; -1 never
};

} // namespace vk
