// A rounded plate with a caption: what a control is drawn as where the skin has no picture.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace vk {

struct PlateLook {
    QColor ground, edge, text;
    int edgeWidth = 2; ///< pixels
};

/// What a plate's edge has to the ground around it at the least.
inline constexpr double EdgeContrast = 3;

/// Fills `box` with the plate and centres the caption on it, wrapped, and made smaller where it is
/// too long.
void DrawCaptionPlate(QPainter& painter, const QRect& box, const QString& caption,
                      const QFont& font, const PlateLook& look);

/// Whether `text` fits `box` in this font with these flags of drawText.
bool TextFits(const QFont& font, const QString& text, QSize box, int flags);

/// The largest font from `font` down to `smallest` of its size in which `text` fits `box` with
/// these flags of drawText; smaller still where not even one line would fit the box's height.
QFont FittingFont(const QFont& font, const QString& text, QSize box, int flags, double smallest);

} // namespace vk
