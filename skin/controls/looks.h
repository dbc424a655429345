// Colours and fonts of the skin as Qt has them.
#pragma once

#include "skin/skin.h"

#include <QColor>
#include <QFont>
#include <QString>

#include <string>

namespace vk {

QColor ToQColor(SkinColour colour);

/// The font in pixels, size * 96/72 * scale, so that the display's density does not matter; nothing
/// gets smaller than 6 pixels or larger than 300.
QFont ToQFont(const SkinFont& font, double scale = 1);
/// The same with the skin's own scale.
QFont ToQFont(const SkinFont& font, const SkinData& skin);

/// A text of the lower layers: UTF-8, bytes that are none are taken as Windows-1252.
QString ToQString(const std::string& text);

/// A colour for the drop shadow of a text: dark and soft under light text, pale under dark text.
QColor ShadowFor(const QColor& text);

/// The contrast of two colours, 1 to 21, https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio
double Contrast(const QColor& a, const QColor& b);

/// `wanted` where it reaches this contrast on `ground`, else black or white; 4.5 is what text
/// needs, 3 what lines need.
QColor Legible(const QColor& wanted, const QColor& ground, double contrast = 4.5);

/// Black or white, whichever is read better on `ground`.
QColor ReadableOn(const QColor& ground);

/// The ground of a screen whose background picture is missing: the clock bar's where the list's
/// texts can be read on it, else black or white.
QColor GroundWithoutPicture(const SkinData& skin);

} // namespace vk
