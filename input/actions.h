// What a key, a button of the remote or a screen's table of operations can mean.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
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
    power,
    tracktime, ///< the time gone or the time left
    eject,
    resume, ///< of the list that was last played
    apps,   ///< the applications or the media
    dim
};

inline constexpr std::size_t ActionCount = 29;

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
    /// `held`: the button sent it before and was not let go since.
    InputCode(const std::string& text, const RemoteMap& map, bool held = false)
        : text_(text), map_(map), held_(held) {}

    /// True when the map gives this code to `action`; an empty text never matches.
    bool Mapped(Action action) const { return !text_.empty() && text_ == map_[action]; }
    /// As it came.
    const std::string& Text() const { return text_; }
    bool FromKeyboard() const { return key_; }
    bool Held() const { return held_; }
    /// Which of ok, quit and the arrows a key is, before anything else that it is mapped to. Enter
    /// and Escape are ok and quit whatever a map says, and so are the arrows what they are, but
    /// that a map may exchange them. Nothing for a remote's codes.
    std::optional<Action> Movement() const;
    /// True when this stands for `action`.
    bool Means(Action action) const;

  private:
    const std::string& text_;
    const ActionCodes& map_;
    bool key_ = false;
    bool held_ = false;
};

/// True for a key that moves, pages or changes by steps: such a one goes on while it is held.
bool GoesOnWhileHeld(const InputCode& key);

/// One row of a screen's table of operations.
template<class Screen> struct ActionRow {
    Action action;
    void (Screen::*operation)();
};

/// The first of `rows` whose action `code` stands for; null when there is none. Of a key, what
/// moves about comes first; a remote's codes know the order of rows alone.
template<class Rows> auto FindRow(const Rows& rows, const InputCode& code) {
    const auto find = [&](const auto& matches) {
        const auto row =
            std::ranges::find_if(rows, [&](const auto& each) { return matches(each.action); });
        return row == std::end(rows) ? nullptr : &*row;
    };
    const auto moves = code.Movement();
    const auto* row = find([&](Action action) { return action == moves; });
    return row ? row : find([&](Action action) { return code.Mapped(action); });
}

/// Runs the operation of the row that `FindRow` finds; false when there is none.
template<class Screen, class Rows>
bool RunAction(Screen& screen, const Rows& rows, const InputCode& code) {
    const ActionRow<Screen>* row = FindRow(rows, code);
    if (row) (screen.*row->operation)();
    return row;
}

} // namespace vk
