// The media browser `playlists`, as keys, touches and other screens know it.
#pragma once

#include "browser/browser_needs.h"
#include "browser/browser_view.h"
#include "browser/buttons.h"
#include "browser/chooser.h"
#include "browser/list_building.h"
#include "browser/lists.h"
#include "browser/ways_out.h"
#include "skin/text_entry.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

inline constexpr const char* BrowserName = "playlists";

/// The parts of the screen that hold state of their own.
struct BrowserModels {
    ListModel& list;      ///< `UCListBox`
    ListModel& rightList; ///< `UCListBox2`
    TextEntry& text;      ///< `UCKeyboard`
};

/// The operations, one at a time: whoever asks for one does so through `Commands`. Events run while
/// a list is being built; then `doquit` and `GoHome` end the build and follow it, `MoveBack` only
/// ends it. A failure in one is logged and the screen goes on. While a text is asked for the
/// keyboard has the keys. `models` and `view` outlive it.
class Browser {
  public:
    Browser(const BrowserNeeds& needs, BrowserModels models, BrowserView& view);

    /// Enters the screen with the list of `CurrentPath` in the mode that the caller has set.
    void ReShow();
    /// Leaves it: stops the timers and keeps the history when something was played from it.
    void switchingform();
    /// The screen goes; `osShutdown` when the operating system closes it.
    void Form_Unload(bool osShutdown);
    /// Acts on the selected row.
    void runok();
    void MoveUp() { MoveList(&ListModel::MoveUp); }
    void MoveDown() { MoveList(&ListModel::MoveDown); }
    void PgUp() { MoveList(&ListModel::PageUp); }
    void PgDn() { MoveList(&ListModel::PageDown); }
    /// A level up; from the right one of two lists to the left one.
    void MoveBack();
    /// Lists the selected folder with all that is below it, or deletes the selected preset; of two
    /// lists to the other one.
    void MoveAhead();
    void VolUp();
    void VolDown();
    /// Back to where the browser was entered from.
    void doquit();
    /// To the text searches of the catalogue, from wherever the user is.
    void JumpToSearch();
    /// Over to the player that is playing, if any.
    void Swap();
    /// One tick of the wheel, positive for up.
    void MouseWheel(int delta);
    /// To the main menu (`imgHome`). A list that was built is asked its name first, here and
    /// wherever else the screen is left.
    void GoHome();
    void ShowGPS();   ///< (`Image17`)
    void ShowRadio(); ///< (`Image15`)
    /// What the buttons of these names do, where they are offered.
    void Eject();
    void Resume();
    void ToggleApplications();

    /// Acts on a key, a decimal virtual-key code; true when it was used. Keys of the player go to
    /// it.
    bool Form_KeyDown(const std::string& code);
    /// The same for what any map gives a meaning.
    bool DoAction(const InputCode& code);
    /// True for a key that goes on while it is held.
    bool Repeats(const InputCode& key) const;

    /// The row of `UCListBox` that was touched is chosen.
    void ChooseLeft();
    /// The row of `UCListBox2` that was touched is removed.
    void ChooseRight();
    /// While a list is built, turns the keys to the other of the two lists (`imjAdd`, `imjRemove`).
    void ToggleListFocus() { building_.ToggleFocus(); }
    /// Asks for the name of the list that is built, to save it (`imjSave`).
    void SaveList();
    BrowserButtons& Buttons() { return buttons_; }
    const BrowserButtons& Buttons() const { return buttons_; }
    const WaysOut& Ways() const { return ways_; }

  private:
    bool OnlyEnds() const;
    void MoveList(void (ListModel::*move)());
    void Leave();
    void ShowLoudness(const std::string& level);
    void Tick();

    ListDesk desk_;
    ListModel& rightList_;
    TextEntry& text_;
    BrowserLists lists_;
    ListBuilding building_;
    Chooser chooser_;
    BrowserButtons buttons_;
    WaysOut ways_;
    LoudnessListener loudnessShown_;
    std::unique_ptr<Timer> Timer2; ///< clock label, state of the player, catalogue
};

} // namespace vk
