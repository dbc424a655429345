#include "playback/audio/clock_line.h"

namespace vk {

ClockLine::ClockLine(Clock& clock, const LocaleInfo& locale, PlayerView& view)
    : clock_(clock), locale_(locale), view_(view), notice_(clock.MakeTimer([this] {
          notice_->Stop();
          Refresh();
      })) {}

void ClockLine::Refresh() {
    if (notice_->Enabled()) return;
    const DateTime now = clock_.Now();
    const std::string text = locale_.LongDate(now) + "    " + locale_.ShortTime(now);
    if (text != shown_) view_.ShowClock(text);
    shown_ = text;
}

void ClockLine::ShowNotice(const std::string& text, int milliseconds) {
    view_.ShowClock(text);
    shown_ = text;
    notice_->Start(milliseconds);
}

} // namespace vk
