// One settings page as the screen that others know by its name.
#pragma once

#include "settings/pages/settings_pages.h"

#include <cstddef>
#include <string>

namespace vk {

/// All pages share one window: it is hidden for another screen, not for another page.
class PageScreen {
  public:
    PageScreen(SettingsPages& pages, std::size_t number) : pages_(pages), number_(number) {}

    void runok() { pages_.Use(); }
    void MoveUp() { pages_.Move(0, -1); }
    void MoveDown() { pages_.Move(0, 1); }
    void MoveBack() { pages_.Move(-1, 0); }
    void MoveAhead() { pages_.Move(1, 0); }
    void VolUp() {}
    void VolDown() {}
    void doquit() { pages_.Quit(); }
    void ReShow() { pages_.Open(number_); }
    void switchingform() { pages_.Leave(); }
    bool Form_KeyDown(const std::string& code) { return pages_.Key(code); }
    bool DoAction(const InputCode& code) { return pages_.Code(code); }
    bool Repeats(const InputCode& key) const {
        if (pages_.Shown().takesCode && !key.FromKeyboard()) return true; // it may measure them
        return pages_.Shown().repeats && GoesOnWhileHeld(key);
    }
    void DoLayout() {
        if (Shown()) pages_.view_.DoLayout();
    }
    void Hide() {
        if (Shown()) pages_.view_.HidePage();
    }

  private:
    bool Shown() const { return pages_.current_ == number_; }

    SettingsPages& pages_;
    std::size_t number_;
};

} // namespace vk
