#include "skin/controls/looks.h"

#include "core/text.h"

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

constexpr int SmallestFont = 6; // pixels
constexpr int LargestFont = 300;

// Relative luminance, https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

QColor ToQColor(SkinColour colour) {
    return {colour.Red(), colour.Green(), colour.Blue()};
}

QFont ToQFont(const SkinFont& font, double scale) {
    QFont result(ToQString(font.name));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    const double pixels = std::round(font.size * 96.0 / 72.0 * scale);
    result.setPixelSize(static_cast<int>(std::clamp<double>(pixels, SmallestFont, LargestFont)));
    return result;
}

QFont ToQFont(const SkinFont& font, const SkinData& skin) {
    return ToQFont(font, skin.FontScale());
}

QString ToQString(const std::string& text) {
    return QString::fromStdString(ToUtf8(text));
}

QColor ShadowFor(const QColor& text) {
    return Luminance(text) > 0.18 ? QColor(0, 0, 0, 190) : QColor(255, 255, 255, 150);
}

double Contrast(const QColor& a, const QColor& b) {
    const double one = Luminance(a) + 0.05;
    const double other = Luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor Legible(const QColor& wanted, const QColor& ground, double contrast) {
    return Contrast(wanted, ground) >= contrast ? wanted : ReadableOn(ground);
}

QColor ReadableOn(const QColor& ground) {
    // Equal contrast to both lies at a luminance of 0.179.
    return Luminance(ground) > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}

QColor GroundWithoutPicture(const SkinData& skin) {
    constexpr double Legible = 4.5;
    const QColor text = ToQColor(skin.ListForegroundClr);
    const QColor ground = ToQColor(skin.ClockBackgroundClr);
    return Contrast(text, ground) >= Legible ? ground : ReadableOn(text);
}

} // namespace vk
