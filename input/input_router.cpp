#include "input/input_router.h"

#include <memory>

namespace vk {

bool InputRouter::Key(const std::string& code, bool repeat) {
    const InputCode key(code, n_.keys);
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen) return false;
    if (!repeat) key_ = Now(code);
    if (repeat && (key_ != Now(code) || !Repeats(*screen, key))) return true;
    if (Dropped()) return true;
    return Run(key, repeat, [this, code] {
        const ScreenOperations* front = n_.screens.Current();
        return front && (front->Form_KeyDown(code) || Power(InputCode(code, n_.keys)));
    });
}

void InputRouter::IRCommand(const std::string& code, bool repeat) {
    const InputCode input(code, n_.remoteKeys, repeat);
    if (!repeat) button_ = Now(code);
    if (repeat && button_ != Now(code)) return;
    if (n_.dialog && n_.dialog(input, repeat)) return;
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen || code.empty() || Dropped()) return;
    Run(input, repeat, [this, code, repeat] {
        const InputCode asked(code, n_.remoteKeys, repeat);
        const ScreenOperations* front = n_.screens.Current();
        return Power(asked) || (front && front->DoAction(asked));
    });
}

InputRouter::Press InputRouter::Now(const std::string& code) const {
    return {code, n_.screens.CurrentForm.Text(), n_.dialogChanges ? n_.dialogChanges() : 0};
}

bool InputRouter::Repeats(const ScreenOperations& screen, const InputCode& key) {
    return screen.Repeats ? screen.Repeats(key) : GoesOnWhileHeld(key);
}

// What runs later is taken for used.
bool InputRouter::Run(const InputCode& code, bool repeat, std::function<bool()> command) {
    const bool quit = !repeat && (code.Mapped(Action::quit) || code.Fixed(Action::quit));
    const auto used = std::make_shared<bool>(true);
    n_.commands.Run(quit ? Commands::When::Interrupt : Commands::When::Drop,
                    [used, command = std::move(command)] { *used = command(); });
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

} // namespace vk
