// What is told in the middle of the films' screen, for a while.
#pragma once

#include "video/movie_view.h"

#include <string>

namespace vk {

class MovieNotices {
  public:
    /// How long a notice stands, and how long it is told that a film cannot be played; ticks of
    /// 100 ms.
    static constexpr int NoticeTicks = 20, FailureTicks = 30;

    /// It outlives the notices.
    explicit MovieNotices(MovieView& view) : view_(view) {}

    /// While a film goes on.
    void Say(const std::string& text) {
        view_.ShowMessage(text);
        noticeTicks_ = NoticeTicks;
    }
    /// A film has ended by that.
    void Fail(const std::string& text) {
        view_.ShowMessage(text);
        failureTicks_ = FailureTicks;
    }
    void Clear() {
        Forget();
        view_.ShowMessage("");
    }
    /// Nothing follows a failure any more.
    void Forget() { failureTicks_ = 0; }
    /// True once, when a failure has been told for long enough.
    bool Tick() {
        if (noticeTicks_ > 0 && --noticeTicks_ == 0 && failureTicks_ == 0) view_.ShowMessage("");
        return failureTicks_ > 0 && --failureTicks_ == 0;
    }

  private:
    MovieView& view_;
    int noticeTicks_ = 0;  ///< until a notice goes
    int failureTicks_ = 0; ///< until what follows; 0: nothing failed
};

} // namespace vk
