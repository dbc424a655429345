#include "core/screens.h"

namespace vk {

const ScreenOperations* Screens::Find(const std::string& name) const {
    const auto found = screens_.find(name);
    return found == screens_.end() ? nullptr : &found->second;
}

bool Screens::Show(const std::string& name) const {
    const ScreenOperations* screen = Find(name);
    if (screen) screen->ReShow();
    return screen != nullptr;
}

bool Screens::ReDisplay(const std::string& name) const {
    const ScreenOperations* screen = Find(name);
    if (!screen || !screen->ReDisplay) return Show(name);
    screen->ReDisplay();
    return true;
}

void Screens::LayOut() const {
    for (const auto& [name, screen] : screens_)
        screen.DoLayout();
}

void Screens::HideOthers(const std::string& name) const {
    for (const auto& [other, screen] : screens_)
        if (other != name) screen.Hide();
}

} // namespace vk
