// A held ok leads into the buttons of the screen in front.
#pragma once

#include "core/screen_buttons.h"
#include "core/screens.h"
#include "core/settings.h"
#include "input/actions.h"
#include "platform/clock.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// On a screen with buttons a press of ok is short or long. A short one acts when it is let go, a
/// long one marks a button; from then on arrows, ok and quit work the buttons, until quit, a pause
/// or the end of the screen. The first key on each screen has it say so, once and for all.
class ButtonKeys {
  public:
    /// ok is held when it is down for so long; milliseconds.
    static constexpr int HoldMs = 700;
    /// So long without a press, and the mark goes; milliseconds.
    static constexpr int IdleMs = 5000;
    /// A button of a remote that is silent for so long was let go. Remotes send a held button about
    /// every 110 ms; milliseconds.
    static constexpr int SilenceMs = 170;

    /// What a press of ok that is not held does, unless `valid` says that it was meant for what has
    /// gone.
    struct ShortPress {
        std::function<bool()> valid;
        std::function<void()> run;
    };

    /// All of it outlives this object.
    ButtonKeys(const Screens& screens, SettingsStore& settings, Clock& clock);

    /// A press, `repeat` of one that is held on; true when it was used, which a `shortPress` may be
    /// later. With an empty `shortPress` ok means nothing before a button is marked.
    bool Down(const InputCode& code, bool repeat, const ShortPress& shortPress);
    /// Marks a button of the screen in front, as a long press does; false when there is none.
    bool Enter();
    /// The key was let go.
    void Up(const std::string& code);
    /// The button of a remote is down now: `Up` follows when it falls silent.
    void Heard(const std::string& code);

  private:
    ScreenButtons* Buttons() const;
    bool Work(ScreenButtons& buttons, const InputCode& code, bool repeat);
    void LetGo();
    void Hold();
    void Idle();
    void Tell(ScreenButtons& buttons);

    const Screens& screens_;
    SettingsStore& settings_;
    std::unique_ptr<Timer> hold_, idle_, silence_;
    std::string down_;     ///< the code of ok as long as it is down
    ShortPress waits_;     ///< it may become a long one
    bool pressed_ = false; ///< so is one of the buttons, by it
};

} // namespace vk
