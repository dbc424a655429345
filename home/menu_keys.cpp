// The keys of the main menu, and the remote's.
#include "home/main_menu.h"

namespace vk {

const ActionRow<MainMenu> MainMenu::Rows[] = {
    {Action::ok, &MainMenu::Start},         {Action::up, &MainMenu::KeyUp},
    {Action::down, &MainMenu::KeyDown},     {Action::SWMP, &MainMenu::ClockBar_Click},
    {Action::back, &MainMenu::MoveLeft},    {Action::forward, &MainMenu::MoveRight},
    {Action::quit, &MainMenu::ShowPointer}, {Action::power, &MainMenu::Exit},
};

bool MainMenu::Form_KeyDown(const std::string& code) {
    constexpr const char* AltF4 = "%115";
    if (code != AltF4) return DoAction(InputCode(code, n_.keys));
    Image1_Click();
    return true;
}

bool MainMenu::DoAction(const InputCode& code) {
    bool used = true; // also by an operation that fails
    Trap(base_.report, "An error occured in velkorandum.Form_KeyDown ", [&] {
        if (code.Mapped(Action::gps)) return StartGPS(); // on this screen before everything else
        used = RunAction(*this, Rows, code);
    });
    return used;
}

void MainMenu::KeyUp() {
    if (LastStartSelection == 1) LastStartSelection = 6;
    MoveUp();
}

void MainMenu::KeyDown() {
    if (LastStartSelection == 5) LastStartSelection = 0;
    MoveDown();
}

// For the user who has hidden the pointer on a machine without a touch screen.
void MainMenu::ShowPointer() {
    base_.window.ShowCursor(true);
    base_.settings.Set(setting::hidemouse, false);
}

} // namespace vk
