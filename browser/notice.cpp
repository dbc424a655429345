#include "browser/notice.h"

namespace vk {

namespace {

constexpr int ShownMs = 5000;

} // namespace

Notice::Notice(Clock& clock, BrowserView& view)
    : view_(view), timer_(clock.MakeTimer([this] {
          timer_->Stop();
          view_.HideLoading();
      })) {}

void Notice::Show(const std::string& text) {
    view_.ShowLoading(text);
    timer_->Start(ShownMs);
}

} // namespace vk
