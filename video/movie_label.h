// The loudness over a film, for a moment.
#pragma once

#include "core/base.h"
#include "playback/loudness.h"
#include "video/movie_view.h"

#include <cstdint>
#include <string>

namespace vk {

class MovieLabel {
  public:
    static constexpr std::int64_t ShownMs = 4000;

    /// All of it outlives the label.
    MovieLabel(Base& base, Loudness& loudness, MovieView& view)
        : base_(base), view_(view), loudness_(loudness),
          listener_(loudness, [this](const std::string&) { Show(); }) {}

    /// The screen is entered: a mute that stands is shown again.
    void Enter() {
        if (loudness_.Muted()) Show();
    }
    /// About once a second: hides the text when it has stood long enough, unless a volume button is
    /// held.
    void HideWhenOld(bool held) {
        if (!shown_ || held || base_.clock.TickMs() - shownMs_ < ShownMs) return;
        shown_ = false;
        view_.ShowVolume("");
    }

  private:
    void Show() {
        shown_ = true;
        shownMs_ = base_.clock.TickMs();
        view_.ShowVolume(loudness_.Muted() ? "     Muted" : "     Volume : " + loudness_.Text());
    }

    Base& base_;
    MovieView& view_;
    Loudness& loudness_;
    LoudnessListener listener_;
    std::int64_t shownMs_ = 0; ///< of the clock's ticks
    bool shown_ = false;
};

} // namespace vk
