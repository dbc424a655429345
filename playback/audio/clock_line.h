// Date and time on the player's screen, and what stands in their place for a moment.
#pragma once

#include "core/base.h"
#include "playback/audio/player_view.h"

#include <memory>
#include <string>

namespace vk {

class ClockLine {
  public:
    /// Both outlive this object.
    ClockLine(Base& base, PlayerView& view);

    /// Shows the time when it has changed, unless a notice stands.
    void Refresh();
    /// Shows a text for so many milliseconds; then the time comes back.
    void ShowNotice(const std::string& text, int milliseconds);
    /// The same for what went wrong, which takes longer to read.
    void ShowProblem(const std::string& text) { ShowNotice(text, ProblemMs); }

  private:
    static constexpr int ProblemMs = 4000;

    Base& base_;
    PlayerView& view_;
    std::unique_ptr<Timer> notice_; ///< runs while a notice stands
    std::string shown_;
};

} // namespace vk
