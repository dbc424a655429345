// Colours and sizes of the dialogs.
#pragma once

#include "skin/skin.h"

#include <QColor>
#include <QFont>

namespace vk {

/// The keyboard's colours of the skin, as those are drawn to be read on each other; where they are
/// not, black or white takes the text's place.
struct DialogLook {
    QColor panel{0x16, 0x1D, 0x26}, edge{0x6A, 0x7A, 0x8A}, text{0xD6, 0xDC, 0xE2};
    QColor plate{0x24, 0x2E, 0x3A}; ///< of a button
    QColor mark{0x2F, 0x6F, 0xBE};  ///< of the marked button or row
    QColor markText{0xFF, 0xFF, 0xFF};
    QString family = QStringLiteral("DejaVu Sans");

    /// The text's font for a screen of this height (pixels); `scale` for smaller or larger ones.
    QFont Font(int screenHeight, double scale = 1) const;
};

/// The skin's look; the built-in one while there is no skin or it is not loaded.
DialogLook DialogLookOf(const SkinStore* skin);

} // namespace vk
