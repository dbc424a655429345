// The screens, met by name: what a key, a remote code, a wheel tick or a switch of screen needs of
// them.
#pragma once

#include <concepts>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace vk {

class InputCode;

/// What every screen offers.
template<class T>
concept Screen = requires(T screen, const std::string& keyCode, const InputCode& code) {
    screen.runok();
    screen.MoveUp();
    screen.MoveDown();
    screen.MoveBack();
    screen.MoveAhead();
    screen.VolUp();
    screen.VolDown();
    screen.doquit();
    screen.ReShow();
    screen.DoLayout();
    screen.switchingform();
    screen.Hide();
    { screen.Form_KeyDown(keyCode) } -> std::convertible_to<bool>;
    { screen.DoAction(code) } -> std::convertible_to<bool>;
};

/// The operations of one screen. `Form_KeyDown` takes the decimal text of a Windows virtual-key
/// code, with "%" in front while Alt is held, and tells whether the key was used; `DoAction` takes
/// what a map gives a meaning, as the remote's.
struct ScreenOperations {
    std::function<void()> runok, MoveUp, MoveDown, MoveBack, MoveAhead, VolUp, VolDown, doquit,
        ReShow, DoLayout, switchingform, Hide;
    std::function<bool(const std::string&)> Form_KeyDown;
    std::function<bool(const InputCode&)> DoAction;
    /// Offered by players alone, empty on other screens: enters with what the browser has set or
    /// left as it was; pauses or goes on.
    std::function<void()> ReDisplay, DoPause;
    /// Whether a held key goes on; empty on screens on which only what moves does.
    std::function<bool(const InputCode&)> Repeats;
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

    /// Registers a loaded screen; it must outlive this object or be removed.
    template<Screen T> void Add(const std::string& name, T& screen) {
        ScreenOperations operations = {
            [&screen] { screen.runok(); },
            [&screen] { screen.MoveUp(); },
            [&screen] { screen.MoveDown(); },
            [&screen] { screen.MoveBack(); },
            [&screen] { screen.MoveAhead(); },
            [&screen] { screen.VolUp(); },
            [&screen] { screen.VolDown(); },
            [&screen] { screen.doquit(); },
            [&screen] { screen.ReShow(); },
            [&screen] { screen.DoLayout(); },
            [&screen] { screen.switchingform(); },
            [&screen] { screen.Hide(); },
            [&screen](const std::string& code) { return screen.Form_KeyDown(code); },
            [&screen](const InputCode& code) { return screen.DoAction(code); },
            {},
            {},
            {}};
        if constexpr (requires { screen.ReDisplay(); })
            operations.ReDisplay = [&screen] { screen.ReDisplay(); };
        if constexpr (requires { screen.DoPause(); })
            operations.DoPause = [&screen] { screen.DoPause(); };
        if constexpr (requires(const InputCode& key) { screen.Repeats(key); })
            operations.Repeats = [&screen](const InputCode& key) { return screen.Repeats(key); };
        screens_[name] = std::move(operations);
    }
    void Remove(const std::string& name) { screens_.erase(name); }

    /// The named screen's operations, null when it is not loaded.
    const ScreenOperations* Find(const std::string& name) const;
    /// The screen in front, null when `CurrentForm` names none that is loaded.
    const ScreenOperations* Current() const { return Find(CurrentForm.Text()); }
    /// Shows a screen by its `ReShow`; false when it is not loaded.
    bool Show(const std::string& name) const;
    /// The same by its `ReDisplay`; a screen without one is shown by `ReShow`.
    bool ReDisplay(const std::string& name) const;
    /// Hides every screen but this one.
    void HideOthers(const std::string& name) const;
    std::size_t Count() const { return screens_.size(); }

  private:
    std::map<std::string, ScreenOperations> screens_;
};

} // namespace vk
