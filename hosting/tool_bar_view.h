// The tool bar's picture, as its logic asks for it.
#pragma once

#include "platform/player_window.h"

#include <string>

namespace vk {

class ToolBarView {
  public:
    virtual ~ToolBarView() = default;
    /// Over all windows, without taking the keyboard.
    virtual void ShowAtFront() = 0;
    virtual void HideBar() = 0;
    /// `UCST`, UTF-8.
    virtual void ShowText(const std::string& text) = 0;
    /// At the upper edge of the screen or at the lower one.
    virtual void MoveTo(bool top) = 0;
    virtual bool AtTop() const = 0;
    /// Marks the first of its buttons, as a held ok does.
    virtual void EnterButtons() = 0;
    /// A touch on a window of the display that was kept from it, at a place of the screen.
    virtual void TakeTouch(WindowHandle window, int x, int y) = 0;
};

} // namespace vk
