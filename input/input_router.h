// The one way from a key or a code of the remote to the operation of the screen in front.
#pragma once

#include "core/commands.h"
#include "core/screens.h"
#include "input/actions.h"
#include "input/button_keys.h"
#include "input/new_screen.h"

#include <functional>
#include <string>
#include <utility>

namespace vk {

/// While a command runs, keys and codes are dropped, but for those that leave: they end it. What
/// comes right after a change of screen is dropped, too, and what a key or button goes on sending
/// that is held since before it: it was pressed for the screen that has gone. Of what is held on
/// only that goes on which the screen lets repeat.
class InputRouter {
  public:
    /// All of it outlives the router.
    struct Needs {
        Screens& screens;
        Commands& commands;
        const NewScreen& newScreen;
        ButtonKeys& buttons;
        const KeyMap& keys;
        const RemoteMap& remoteKeys;
        /// Works the dialog in front; false when there is none. Keys reach dialogs by themselves.
        std::function<bool(const InputCode&, bool repeat)> dialog = {};
        /// Another number whenever a dialog has come or gone.
        std::function<int()> dialogChanges = {};
        std::function<void()> powerAction = {}; ///< empty: power does what the screen makes of it
        std::function<void()> toggleDim = {};   ///< empty: dim does
    };

    explicit InputRouter(Needs needs) : n_(std::move(needs)) {}

    /// A key, the decimal text of its code, with "%" in front while Alt is held, empty for a key
    /// that has none; `repeat` when it is being held. True when it was used.
    bool Key(const std::string& code, bool repeat = false);
    /// A key was let go.
    void KeyUp(const std::string& code) { n_.buttons.Up(code); }
    /// A code of the remote.
    void IRCommand(const std::string& code, bool repeat = false);
    /// A code that is no command, as it comes too soon: its button is still held.
    void IRHeard(const std::string& code) { n_.buttons.Heard(code); }

  private:
    /// What was pressed last, and where.
    struct Press {
        std::string code, form;
        int dialogs = 0;
        bool operator==(const Press&) const = default;
    };

    Press Now(const std::string& code) const;
    ButtonKeys::ShortPress Short(const Press& press, std::function<void()> ask) const;
    static bool Repeats(const ScreenOperations& screen, const InputCode& key);
    /// Asks for `work` on the screen in front; false when it was run and found nothing to do.
    bool Ask(const InputCode& code, bool repeat,
             const std::function<bool(const ScreenOperations&)>& work);
    bool Power(const InputCode& code);
    bool Dim(const InputCode& code);

    Needs n_;
    Press key_, button_;
};

} // namespace vk
