#include "input/input_router.h"

#include <memory>

namespace vk {

namespace {

constexpr const char* AltF4 = "%115";

/// What the user leaves by.
bool Leaves(const InputCode& code) {
    return code.Means(Action::quit) || code.Mapped(Action::power) ||
           (code.FromKeyboard() && code.Text() == AltF4);
}

} // namespace

bool InputRouter::Key(const std::string& code, bool repeat) {
    const InputCode key(code, n_.keys);
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen) return false;
    if (!repeat) key_ = Now(code);
    if (repeat && key_ != Now(code)) return true;
    const auto work = [this, code](const ScreenOperations& front) {
        const InputCode press(code, n_.keys);
        return Dim(press) || front.Form_KeyDown(code) || Power(press);
    };
    const auto ask = [this, code, work] { Ask(InputCode(code, n_.keys), false, work); };
    if (n_.buttons.Down(key, repeat, Short(key_, ask))) return true;
    return (repeat && !Repeats(*screen, key)) || Ask(key, repeat, work);
}

void InputRouter::IRCommand(const std::string& code, bool repeat) {
    const InputCode input(code, n_.remoteKeys, repeat);
    if (!repeat) button_ = Now(code);
    if (repeat && button_ != Now(code)) return;
    if (n_.dialog && n_.dialog(input, repeat)) return;
    if (code.empty()) return;
    const auto work = [this, code, repeat](const ScreenOperations& front) {
        const InputCode press(code, n_.remoteKeys, repeat);
        return Power(press) || Dim(press) || front.DoAction(press);
    };
    const auto ask = [this, code, work] { Ask(InputCode(code, n_.remoteKeys), false, work); };
    const bool used = n_.buttons.Down(input, repeat, Short(button_, ask));
    n_.buttons.Heard(code);
    const ScreenOperations* screen = n_.screens.Current();
    if (!used && screen && (!repeat || Repeats(*screen, input))) Ask(input, repeat, work);
}

// What is pressed while a command runs, or right after a change of screen, is not kept for later.
ButtonKeys::ShortPress InputRouter::Short(const Press& press, std::function<void()> ask) const {
    if (n_.commands.ListBusy() || n_.newScreen.Deaf()) return {};
    const auto valid = [this, press] {
        return press == Now(press.code) && !n_.commands.ListBusy();
    };
    return {valid, std::move(ask)};
}

InputRouter::Press InputRouter::Now(const std::string& code) const {
    return {code, n_.screens.CurrentForm.Text(), n_.dialogChanges ? n_.dialogChanges() : 0};
}

bool InputRouter::Repeats(const ScreenOperations& screen, const InputCode& key) {
    return screen.Repeats ? screen.Repeats(key) : GoesOnWhileHeld(key);
}

bool InputRouter::Ask(const InputCode& code, bool repeat,
                      const std::function<bool(const ScreenOperations&)>& work) {
    if (!n_.commands.ListBusy() && n_.newScreen.Deaf()) return true;
    using When = Commands::When;
    const When when = Leaves(code) && !repeat ? When::Interrupt : When::Drop;
    const auto used = std::make_shared<bool>(true); // it may be run when this call has returned
    n_.commands.Run(when, [this, work, used] {
        const ScreenOperations* screen = n_.screens.Current();
        *used = screen && work(*screen);
    });
    return *used;
}

// The remote's power does nothing on the settings, and on the page of codes it may be being learnt.
bool InputRouter::Power(const InputCode& code) {
    const FrontName& form = n_.screens.CurrentForm;
    if (!n_.powerAction || !code.Mapped(Action::power)) return false;
    if (!code.FromKeyboard() && (form == "settings" || form == "settingsRemote")) return false;
    n_.powerAction();
    return true;
}

// The settings want the screen as it is, and on their pages the key may be being learnt.
bool InputRouter::Dim(const InputCode& code) {
    if (!n_.toggleDim || !code.Mapped(Action::dim)) return false;
    if (n_.screens.CurrentForm.starts_with("settings")) return false;
    if (!code.Held()) n_.toggleDim();
    return true;
}

} // namespace vk
