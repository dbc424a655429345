// The screens, met by name: what a key, a remote code, a wheel tick or a switch of screen needs of
// them.
#pragma once

#include "core/screen_buttons.h"

#include <concepts>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace vk {

class InputCode;

/// What the logic of every screen offers: the same operations everywhere, whether a key, a remote
/// or another screen asks for them. The main menu names its sideways moves `MoveLeft` and
/// `MoveRight`.
template<class T>
concept ScreenLogic = requires(T logic, const std::string& keyCode, const InputCode& code) {
    logic.runok();
    logic.MoveUp();
    logic.MoveDown();
    logic.VolUp();
    logic.VolDown();
    logic.doquit();
    logic.ReShow();
    logic.switchingform();
    { logic.Form_KeyDown(keyCode) } -> std::convertible_to<bool>;
    { logic.DoAction(code) } -> std::convertible_to<bool>;
}
&&(
    requires(T logic) {
        logic.MoveBack();
        logic.MoveAhead();
    } ||
    requires(T logic) {
        logic.MoveLeft();
        logic.MoveRight();
    });

/// What its window offers.
template<class T>
concept ScreenWindow = requires(T window) {
    window.DoLayout();
    window.Hide();
};

/// The name of the main menu, which every other screen goes back to.
inline constexpr const char* HomeScreen = "velkorandum";

/// What others do with a screen that they know by its name alone. `Form_KeyDown` takes the decimal
/// text of a Windows virtual-key code, with "%" in front while Alt is held, and tells whether the
/// key was used; `DoAction` takes what a map gives a meaning, as the remote's.
struct ScreenOperations {
    std::function<void()> VolUp, VolDown, doquit, ReShow, DoLayout, switchingform, Hide;
    std::function<bool(const std::string&)> Form_KeyDown;
    std::function<bool(const InputCode&)> DoAction;
    /// Offered by players alone, empty on other screens: enters with what the browser has set or
    /// left as it was; pauses or goes on.
    std::function<void()> ReDisplay, DoPause;
    /// Whether a held key goes on; empty on screens on which only what moves does.
    std::function<bool(const InputCode&)> Repeats;
    ScreenButtons* Buttons = nullptr; ///< null on screens whose keys reach everything
};

/// The name of the screen in front. A change of it is told, whoever makes it.
class FrontName {
  public:
    FrontName& operator=(std::string_view name) {
        if (name == name_) return *this;
        name_ = name;
        if (onChange) onChange();
        return *this;
    }
    void clear() { *this = std::string_view(); }
    bool starts_with(std::string_view text) const { return name_.starts_with(text); }
    const std::string& Text() const { return name_; }
    operator std::string_view() const { return name_; }
    friend bool operator==(const FrontName& form, std::string_view name) {
        return form.name_ == name;
    }

    std::function<void()> onChange;

  private:
    std::string name_;
};

/// The loaded screens and `CurrentForm`, the name of the one in front: the one truth for routing
/// input.
class Screens {
  public:
    FrontName CurrentForm;

    /// Registers a loaded screen, its logic and its window; both outlive this object or are
    /// removed.
    template<ScreenLogic Logic, ScreenWindow Window>
    void Add(const std::string& name, Logic& logic, Window& window) {
        ScreenOperations operations = {
            [&logic] { logic.VolUp(); },
            [&logic] { logic.VolDown(); },
            [&logic] { logic.doquit(); },
            [&logic] { logic.ReShow(); },
            [&window] { window.DoLayout(); },
            [&logic] { logic.switchingform(); },
            [&window] { window.Hide(); },
            [&logic](const std::string& code) { return logic.Form_KeyDown(code); },
            [&logic](const InputCode& code) { return logic.DoAction(code); },
            {},
            {},
            {},
            nullptr};
        if constexpr (requires { logic.ReDisplay(); })
            operations.ReDisplay = [&logic] { logic.ReDisplay(); };
        if constexpr (requires { logic.DoPause(); })
            operations.DoPause = [&logic] { logic.DoPause(); };
        if constexpr (requires(const InputCode& key) { logic.Repeats(key); })
            operations.Repeats = [&logic](const InputCode& key) { return logic.Repeats(key); };
        if constexpr (requires { window.Buttons(); }) operations.Buttons = &window.Buttons();
        screens_[name] = std::move(operations);
    }
    /// The same for one that is both.
    template<class T> void Add(const std::string& name, T& screen) { Add(name, screen, screen); }
    void Remove(const std::string& name) { screens_.erase(name); }

    /// The named screen's operations, null when it is not loaded.
    const ScreenOperations* Find(const std::string& name) const;
    /// The screen in front, null when `CurrentForm` names none that is loaded.
    const ScreenOperations* Current() const { return Find(CurrentForm.Text()); }
    /// Shows a screen by its `ReShow`; false when it is not loaded.
    bool Show(const std::string& name) const;
    /// The same by its `ReDisplay`; a screen without one is shown by `ReShow`.
    bool ReDisplay(const std::string& name) const;
    /// Has every screen laid out anew, as for another skin.
    void LayOut() const;
    /// Hides every screen but this one.
    void HideOthers(const std::string& name) const;
    std::size_t Count() const { return screens_.size(); }

  private:
    std::map<std::string, ScreenOperations> screens_;
};

} // namespace vk
