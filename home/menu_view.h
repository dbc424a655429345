// The main menu's picture, as its logic asks for it.
#pragma once

#include <string>

namespace vk {

class MenuView {
  public:
    virtual ~MenuView() = default;
    /// Brings the screen to the front.
    virtual void ShowAtFront() = 0;
    /// Makes the icons anew from the skin's icons in the menu.
    virtual void ShowIcons() = 0;
    /// Draws icon `index` (from 1; others are ignored) selected or not, at once.
    virtual void DrawIcon(int index, bool selected) = 0;
    virtual void ShowFrame(bool shown) = 0;
    /// The text of the bottom bar: the clock, or a message.
    virtual void SetClockBar(const std::string& text) = 0;
    /// The banner in the middle; an empty text hides it.
    virtual void ShowBanner(const std::string& text) = 0;
    /// The banner on the skin's picture for that, while another screen is on its way.
    virtual void ShowLoading(const std::string& text) = 0;
    /// Applies the skin's colours to the clock bar again.
    virtual void RefreshClockColours() = 0;
};

} // namespace vk
