// Ticks of the mouse wheel.
#pragma once

#include <QWheelEvent>

namespace vk {

/// Fine wheels and touch pads send parts of a tick: they are added up.
class WheelTicks {
  public:
    /// Calls `tick` with 1 (up) or -1 for each whole tick that is due.
    template<class Tick> void Turn(QWheelEvent& event, Tick tick) {
        rest_ += event.angleDelta().y();
        for (; rest_ >= Notch; rest_ -= Notch)
            tick(1);
        for (; rest_ <= -Notch; rest_ += Notch)
            tick(-1);
        event.accept();
    }

  private:
    static constexpr int Notch = 120; ///< eighths of a degree
    int rest_ = 0;
};

} // namespace vk
