#include "playback/audio/clock_line.h"

namespace vk {

ClockLine::ClockLine(Base& base, PlayerView& view)
    : base_(base), view_(view), notice_(base.clock.MakeTimer([this] {
          notice_->Stop();
          Refresh();
      })) {}

void ClockLine::Refresh() {
    if (notice_->Enabled()) return;
    const DateTime now = base_.clock.Now();
    const std::string text = base_.locale.LongDate(now) + "    " + base_.locale.ShortTime(now);
    if (text != shown_) view_.ShowClock(text);
    shown_ = text;
}

void ClockLine::ShowNotice(const std::string& text, int milliseconds) {
    view_.ShowClock(text);
    shown_ = text;
    notice_->Start(milliseconds);
}

} // namespace vk
