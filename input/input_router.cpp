#include "input/input_router.h"

#include <utility>

namespace vk {

bool InputRouter::Key(const std::string& code) {
    const InputCode key(code, n_.keys);
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen || code.empty()) return false;
    if (Dropped(key, true)) return true;
    return Run([&] { return screen->Form_KeyDown(code) || Power(key); });
}

void InputRouter::IRCommand(const std::string& code) {
    const InputCode input(code, n_.remoteKeys);
    if (n_.dialog && n_.dialog(input)) return;
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen || code.empty() || Dropped(input, false)) return;
    Run([&] { return Power(input) || screen->DoAction(input); });
}

bool InputRouter::Dropped(const InputCode& code, bool mayInterrupt) const {
    const std::int64_t now = n_.clock.TickMs();
    if (!running_) return now < deafUntilMs_;
    const bool quit = code.Mapped(Action::quit) || code.Fixed(Action::quit);
    return !mayInterrupt || !quit || now - startedMs_ < InterruptMs;
}

bool InputRouter::Run(const std::function<bool()>& command) {
    if (running_) return command();
    struct Running {
        InputRouter& router;
        const std::string form = router.n_.screens.CurrentForm;
        ~Running() {
            router.running_ = false;
            if (router.n_.screens.CurrentForm != form)
                router.deafUntilMs_ = router.n_.clock.TickMs() + NewScreenMs;
        }
    };
    running_ = true;
    startedMs_ = n_.clock.TickMs();
    const Running running{*this};
    return command();
}

// The settings and their pages keep the code of power to themselves: it may be being learnt.
bool InputRouter::Power(const InputCode& code) {
    if (!n_.powerAction || !code.Mapped(Action::power) ||
        n_.screens.CurrentForm.starts_with("settings"))
        return false;
    n_.powerAction();
    return true;
}

} // namespace vk
