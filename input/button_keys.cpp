#include "input/button_keys.h"

#include "core/text.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr char HowTo[] = "Hold Enter or OK to get into the buttons";

struct Meaning {
    Action action;
    int dx = 0, dy = 0;
};
constexpr Meaning Meanings[] = {{Action::ok},          {Action::quit},
                                {Action::up, 0, -1},   {Action::down, 0, 1},
                                {Action::back, -1, 0}, {Action::forward, 1, 0}};

} // namespace

ButtonKeys::ButtonKeys(const Screens& screens, SettingsStore& settings, Clock& clock)
    : screens_(screens), settings_(settings), hold_(clock.MakeTimer([this] { Hold(); })),
      idle_(clock.MakeTimer([this] { Idle(); })), silence_(clock.MakeTimer([this] { LetGo(); })) {}

ScreenButtons* ButtonKeys::Buttons() const {
    const ScreenOperations* screen = screens_.Current();
    return screen ? screen->Buttons : nullptr;
}

bool ButtonKeys::Down(const InputCode& code, bool repeat, const ShortPress& shortPress) {
    if (!repeat) LetGo(); // what was pressed first comes first
    ScreenButtons* buttons = Buttons();
    if (!buttons || !buttons->Offered()) return false;
    if (!repeat) Tell(*buttons);
    if (buttons->Marked()) return Work(*buttons, code, repeat);
    const Meaning* meaning = FindRow(Meanings, code);
    if (!meaning || meaning->action != Action::ok) return false;
    if (repeat) return true;
    if (!shortPress.run) return false;
    down_ = code.Text();
    waits_ = shortPress;
    hold_->Start(HoldMs);
    return true;
}

bool ButtonKeys::Work(ScreenButtons& buttons, const InputCode& code, bool repeat) {
    idle_->Start(IdleMs);
    const Meaning* meaning = FindRow(Meanings, code);
    if (!meaning) return false;
    if (meaning->dx != 0 || meaning->dy != 0) {
        buttons.Move(meaning->dx, meaning->dy);
    } else if (repeat) {
        return true;
    } else if (meaning->action == Action::quit) {
        Idle();
    } else {
        idle_->Stop(); // it may be held for long, as one of the volume's
        down_ = code.Text();
        pressed_ = true;
        buttons.Press();
    }
    return true;
}

void ButtonKeys::Up(const std::string& code) {
    if (code == down_) LetGo();
}

void ButtonKeys::Heard(const std::string& code) {
    if (!down_.empty() && code == down_) silence_->Start(SilenceMs);
}

void ButtonKeys::LetGo() {
    hold_->Stop();
    silence_->Stop();
    down_.clear();
    if (std::exchange(pressed_, false)) {
        idle_->Start(IdleMs);
        if (ScreenButtons* buttons = Buttons()) buttons->Release();
    }
    const ShortPress press = std::exchange(waits_, {});
    if (press.run && press.valid()) press.run();
}

void ButtonKeys::Hold() {
    hold_->Stop();
    const ShortPress press = std::exchange(waits_, {});
    if (!press.run || !press.valid()) return;
    if (!Enter()) press.run();
}

bool ButtonKeys::Enter() {
    ScreenButtons* buttons = Buttons();
    if (!buttons || !buttons->Enter()) return false;
    idle_->Start(IdleMs);
    return true;
}

void ButtonKeys::Idle() {
    idle_->Stop();
    if (ScreenButtons* buttons = Buttons()) buttons->Leave();
}

void ButtonKeys::Tell(ScreenButtons& buttons) {
    const std::string name = screens_.CurrentForm.Text();
    auto told = Split(settings_.values.ButtonsTold, ' ');
    if (std::ranges::find(told, name) != told.end()) return;
    std::erase(told, "");
    told.push_back(name);
    settings_.Set(setting::ButtonsTold, Join(told, " "));
    buttons.Say(HowTo);
}

} // namespace vk
