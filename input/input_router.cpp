#include "input/input_router.h"

#include <algorithm>
#include <array>

namespace vk {

bool InputRouter::Key(const std::string& code, bool repeat) {
    const InputCode key(code, n_.keys);
    const ScreenOperations* screen = n_.screens.Current();
    if (!screen) return false;
    if (!repeat) key_ = Now(code);
    if (repeat && (key_ != Now(code) || !Repeats(key))) return true;
    if (Dropped(key, repeat)) return true;
    return Run([&] { return screen->Form_KeyDown(code) || Power(key); });
}

void InputRouter::IRCommand(const std::string& code, bool repeat) {
    const InputCode input(code, n_.remoteKeys);
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

// What goes on while its key is held. On the page that learns keys nothing does: the key that armed
// a function may still be held.
bool InputRouter::Repeats(const InputCode& key) const {
    static constexpr std::array Held = {
        Action::up,       Action::down, Action::back,  Action::forward, Action::pageup,
        Action::pagedown, Action::vup,  Action::Vdown, Action::FF,      Action::REW};
    if (n_.screens.CurrentForm == "settingsKeyboard") return false;
    return std::ranges::any_of(
        Held, [&](Action action) { return key.Mapped(action) || key.Fixed(action); });
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

// The settings and their pages keep the code of power to themselves: it may be being learnt.
bool InputRouter::Power(const InputCode& code) {
    if (!n_.powerAction || !code.Mapped(Action::power) ||
        n_.screens.CurrentForm.starts_with("settings"))
        return false;
    n_.powerAction();
    return true;
}

} // namespace vk
