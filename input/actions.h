// What a key, a button of the remote or a screen's table of operations can mean.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vk {

/// The actions, in the order in which their keys are read. They bear the names of their keys in
/// kb.ini, without the "kb" in front of some.
enum class Action {
    gps,
    MP3toRadio,
    mute,
    ok,
    quit,
    vup,
    Vdown,
    forward,
    back,
    up,
    down,
    SWMP,
    shuffle,
    startvis,
    pageup,
    pagedown,
    play,
    pause,
    FF,
    REW,
    Search,
    addfav,
    nextvis,
    power
};

inline constexpr std::size_t ActionCount = 24;

struct ActionNames {
    Action action;
    const char* key;    ///< in section keyboard of kb.ini
    const char* remote; ///< in section remote_keys of keys.ini
    const char* fixed;  ///< key code that works even with a bad map, "" for none
    const char* caption;
};

/// All actions, each at the place of its number.
extern const std::array<ActionNames, ActionCount> Actions;

inline const ActionNames& NamesOf(Action action) {
    return Actions[static_cast<std::size_t>(action)];
}

/// True for those that every screen is worked by: ok, quit and the four arrows.
inline bool HasFixedKey(Action action) {
    return *NamesOf(action).fixed != 0;
}

/// A code text for each action; empty where there is none.
class ActionCodes {
  public:
    std::string& operator[](Action action) { return codes_[static_cast<std::size_t>(action)]; }
    const std::string& operator[](Action action) const {
        return codes_[static_cast<std::size_t>(action)];
    }

  private:
    std::array<std::string, ActionCount> codes_;
};

/// kb.ini in memory: decimal Windows virtual-key codes.
struct KeyMap : ActionCodes {};
/// keys.ini in memory: code texts as the receiver gives them.
struct RemoteMap : ActionCodes {};

/// A key or code that has arrived, and the map that gives it a meaning. Made for one call: it only
/// refers to both.
class InputCode {
  public:
    InputCode(const std::string& text, const KeyMap& map) : text_(text), map_(map), key_(true) {}
    InputCode(const std::string& text, const RemoteMap& map) : text_(text), map_(map) {}

    /// True when the map gives this code to `action`; an empty text never matches.
    bool Mapped(Action action) const { return !text_.empty() && text_ == map_[action]; }
    /// As it came.
    const std::string& Text() const { return text_; }
    bool FromKeyboard() const { return key_; }
    /// True when this is the fixed key of `action`.
    bool Fixed(Action action) const {
        return key_ && !text_.empty() && text_ == NamesOf(action).fixed;
    }

  private:
    const std::string& text_;
    const ActionCodes& map_;
    bool key_ = false;
};

/// One row of a screen's table of operations.
template<class Screen> struct ActionRow {
    Action action;
    void (Screen::*operation)();
};

/// Runs the operation of the first row whose action `code` stands for; false when there is none.
/// What moves about comes first, as mapped, then by its fixed keys: a map may exchange the arrows,
/// but no other action can take them away, nor Enter and Escape.
template<class Screen, class Rows>
bool RunAction(Screen& screen, const Rows& rows, const InputCode& code) {
    const auto run = [&](const auto& matches) {
        for (const ActionRow<Screen>& row : rows)
            if (matches(row.action)) {
                (screen.*row.operation)();
                return true;
            }
        return false;
    };
    return run([&](Action action) { return HasFixedKey(action) && code.Mapped(action); }) ||
           run([&](Action action) { return code.Fixed(action); }) ||
           run([&](Action action) { return code.Mapped(action); });
}

} // namespace vk
