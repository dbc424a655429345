// The tool bar over a program, `ExtAppTools`.
#pragma once

#include "hosting/hosting.h"
#include "hosting/tool_bar_view.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "playback/loudness.h"
#include "playback/transport.h"
#include "skin/surfaces.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

inline constexpr const char* ToolBarName = "ExtAppTools";

/// While it is in front the selected program has the screen and the keyboard, but for the keys that
/// lead back. The sound goes on behind it, and the bar's buttons steer that.
class ToolBar {
  public:
    /// How often the program is looked after, milliseconds; and so long a text stands in the place
    /// of the title, a sentence that runs through it longer.
    static constexpr int LookMs = 500, SayMs = 2500, SentenceMs = 15'000;
    /// A held quit key of this length leads into the bar's buttons; milliseconds.
    static constexpr int HoldMs = 700;

    /// All of it outlives this object.
    struct Needs {
        Base& base;
        Hosting& hosting;
        ForeignWindows& windows;
        Surfaces& surfaces;
        BrowserState& browser;
        Loudness& loudness;
        Transport& transport;
        const KeyMap& keys;
        std::function<void()> SaveAudioData = {};
        /// A key that was held back from the program, as if this system had the keyboard.
        std::function<void(const std::string& code)> press = {};
        std::function<void()> checkDaylight = {}; ///< may load another skin
    };
    ToolBar(Needs needs, ToolBarView& view);
    ~ToolBar();

    /// Brings the selected program and the bar to the front; without one leads to the list.
    void ReShow();
    void switchingform();
    /// Closes the program and goes back to the list; one that asks its user something stays.
    void doquit();
    void MoveAhead();
    void MoveBack();
    void VolUp();
    void VolDown();
    void MoveUp() { VolUp(); }
    void MoveDown() { VolDown(); }
    void domute() { n_.loudness.domute(); }
    /// Gives the program the keyboard.
    void runok();
    /// Back to the list; the program goes on under it.
    void imgSwap_Click();
    /// To the other edge of the screen.
    void imgMoveMe_Click();
    /// Shows a text in the place of what plays, for a while.
    void Say(const std::string& text, int milliseconds = SayMs);
    /// Shows what plays.
    void SetExtAppText();
    bool Form_KeyDown(const std::string& code);
    bool DoAction(const InputCode& code);
    void Wheel(int delta);
    /// A key was let go while the bar had the keyboard: that of quit is not held any more.
    void KeysUp();
    /// The buttons of the bar have been left by keys.
    void ButtonsLeft();
    /// The screen has gone from the front, whoever did it.
    void Hidden();

  private:
    void Do(const char* operation, const std::function<void()>& work) const;
    void Leave();
    void HoldKeys();
    void KeyHeld(int key, bool down);
    void Timer1_Timer();
    void ShowProgram(bool shown);
    bool InFront() const { return n_.base.screens.CurrentForm == ToolBarName; }

    Needs n_;
    ToolBarView& view_;
    LoudnessListener loudnessShown_;
    std::unique_ptr<Timer> Timer1_, look_, hold_;
    std::int64_t saidUntilMs_ = 0;
    int heldKey_ = 0;       ///< of quit, as long as its press may become a long one
    bool heldLong_ = false; ///< it has become one
    bool shown_ = false;
};

} // namespace vk
