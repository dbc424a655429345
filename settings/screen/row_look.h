// How the plates and texts of the settings screens look, in whatever colours the skin has.
#pragma once

#include "skin/controls/shaded_label.h"
#include "skin/skin.h"

#include <QColor>

namespace vk {

/// Made anew with each drawing, as the skin may have changed.
struct RowLook {
    /// For a screen that is so high, pixels: texts are as large on every panel.
    RowLook(const SkinData& skin, int screenHeight);

    /// A plate that can be used, `chosen` with the cursor on it or `lit` for a state that is on.
    void Dress(ShadedLabel& label, bool chosen, bool enabled = true, bool lit = false) const;
    /// A text on the screen's own ground.
    void DressText(ShadedLabel& label) const;

    const SkinData& skin;
    SkinFont font, small;
    SkinColour text;
    QColor back;   ///< of the screen
    QColor ground; ///< of a plate
    QColor chosen;
};

} // namespace vk
