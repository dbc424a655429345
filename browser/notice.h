// Something said to the user over the list, for a while.
#pragma once

#include "browser/browser_view.h"
#include "platform/clock.h"

#include <memory>
#include <string>

namespace vk {

/// One at a time. Both outlive this object.
class Notice {
  public:
    Notice(Clock& clock, BrowserView& view);

    /// Shows it for five seconds, in place of the one before.
    void Show(const std::string& text);
    /// No longer keeps it; the label is the caller's from now on.
    void Drop() { timer_->Stop(); }
    bool Showing() const { return timer_->Enabled(); }

  private:
    BrowserView& view_;
    std::unique_ptr<Timer> timer_;
};

} // namespace vk
