#include "input/input_router.h"

namespace vk {

bool InputRouter::Key(const std::string& code, bool repeat) {
    const InputCode key(code, n_.keys);
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen) return false;
    if (!repeat) key_ = Now(code);
    if (repeat && (key_ != Now(code) || !Repeats(*screen, key))) return true;
    if (Dropped(key, repeat)) return true;
    return Run([&] { return screen->Form_KeyDown(code) || Power(key); });
}

void InputRouter::IRCommand(const std::string& code, bool repeat) {
    const InputCode input(code, n_.remoteKeys, repeat);
    if (!repeat) button_ = Now(code);
    if (repeat && button_ != Now(code)) return;
    if (n_.dialog && n_.dialog(input, repeat)) return;
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen || code.empty() || Dropped(input, repeat)) return;
    Run([&] { return Power(input) || screen->DoAction(input); });
}

InputRouter::Press InputRouter::Now(const std::string& code) const {
    return {code, n_.screens.CurrentForm.Text(), n_.dialogChanges ? n_.dialogChanges() : 0};
}

bool InputRouter::Repeats(const ScreenOperations& screen, const InputCode& key) {
    return screen.Repeats ? screen.Repeats(key) : GoesOnWhileHeld(key);
}

bool InputRouter::Dropped(const InputCode& code, bool repeat) const {
    if (!running_) return n_.newScreen.Deaf();
    const bool quit = code.Mapped(Action::quit) || code.Fixed(Action::quit);
    return repeat || !quit || n_.clock.TickMs() - startedMs_ < InterruptMs;
}

bool InputRouter::Run(const std::function<bool()>& command) {
    if (running_) return command();
    struct Running {
        bool& running;
        ~Running() { running = false; }
    };
    running_ = true;
    startedMs_ = n_.clock.TickMs();
    const Running running{running_};
    return command();
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
