// A small picture of what the settings of the appearance do.
#pragma once

#include "core/settings_values.h"
#include "settings/pages/picture.h"
#include "skin/skin.h"

#include <string>

namespace vk {

/// A list and the menu beside each other, in the skin's colours: the list's spacing and selection
/// bar, the menu's clock bar and buttons.
class LooksPreview {
  public:
    /// Both outlive this object.
    LooksPreview(const Settings& settings, const SkinStore& skin)
        : settings_(settings), skin_(skin) {}

    /// Drawn anew when something of it has changed.
    const PagePicture& Picture();

  private:
    struct Box {
        int x, y, width, height;
    };
    void Fill(const Box& box, SkinColour colour);
    void DrawList(const Box& box);
    void DrawMenu(const Box& box);

    const Settings& settings_;
    const SkinStore& skin_;
    PagePicture picture_;
    std::string drawn_; ///< what the picture was drawn of
};

} // namespace vk
