// The two bars over a film, `frmInfoBar` and `frmButtonBar`: in when they are wanted, and out by
// themselves.
#pragma once

#include "core/base.h"
#include "video/movie_view.h"

#include <cstdint>
#include <utility>

namespace vk {

class MovieBars {
  public:
    /// From here on they slide out, and from there on they are gone; ticks of 100 ms.
    static constexpr std::int16_t SlideTicks = 41, GoneTicks = 45;

    /// Both outlive the bars.
    MovieBars(const Base& base, MovieView& view) : base_(base), view_(view) {}

    /// False where the driver wants none at all.
    bool Offered() const { return base_.settings.values.MovShowBar; }
    void Want() { Stand(0); }
    void Drop() { Stand(GoneTicks); }
    /// They are worked by keys, and stay in for that.
    void Hold(bool on) {
        held_ = on;
        if (on) Want();
    }
    /// While `touched` they stay.
    void Tick(bool touched) {
        const std::int16_t last = held_ || touched ? SlideTicks - 1 : GoneTicks;
        if (BarTicks < last) ++BarTicks;
        Show();
    }

  private:
    void Stand(std::int16_t ticks) {
        BarTicks = ticks;
        Show();
    }
    /// How much of them is in, 0 to 1.
    double In() const {
        constexpr double Steps = GoneTicks - SlideTicks + 1;
        return BarTicks < SlideTicks ? 1 : (GoneTicks - BarTicks) / Steps;
    }
    void Show() {
        const double in = Offered() ? In() : 0;
        if (in != std::exchange(shown_, in)) view_.ShowBars(in);
    }

    const Base& base_;
    MovieView& view_;
    std::int16_t BarTicks = GoneTicks; ///< since they were last wanted
    double shown_ = 0;                 ///< how much of them is on the screen
    bool held_ = false;
};

} // namespace vk
