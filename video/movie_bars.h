// The two bars over a film, `frmInfoBar` and `frmButtonBar`: in when they are wanted, and out by
// themselves.
#pragma once

#include <cstdint>

namespace vk {

class MovieBars {
  public:
    /// From here on they slide out, and from there on they are gone; ticks of 100 ms.
    static constexpr std::int16_t SlideTicks = 41, GoneTicks = 45;

    void Want() { BarTicks = 0; }
    void Drop() { BarTicks = GoneTicks; }
    /// While `held` they stay.
    void Tick(bool held) {
        if (held && BarTicks < SlideTicks)
            BarTicks =
                BarTicks + 1 < SlideTicks ? static_cast<std::int16_t>(BarTicks + 1) : BarTicks;
        else if (!held && BarTicks < GoneTicks)
            ++BarTicks;
    }
    /// How much of them is in, 0 to 1.
    double In() const {
        constexpr double Steps = GoneTicks - SlideTicks + 1;
        return BarTicks < SlideTicks ? 1 : (GoneTicks - BarTicks) / Steps;
    }

  private:
    std::int16_t BarTicks = GoneTicks; ///< since they were last wanted
};

} // namespace vk
