#include "settings/screen/row_look.h"

#include "skin/controls/looks.h"

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

constexpr int RowRadius = 12;
constexpr double SkinHeight = 480; // pixels of the panel that a skin's fonts are made for
constexpr QColor Lit(0x2E, 0x8B, 0x57);

// Until a skin is loaded its colours are all black.
SkinColour OrElse(SkinColour colour, std::int32_t other) {
    return colour.value == 0 ? SkinColour{other} : colour;
}

QColor PlateGround(const QColor& back) {
    return back.lightness() > 127  ? back.darker(115)
           : back.lightness() < 12 ? QColor(48, 56, 68)
                                   : back.lighter(170);
}

} // namespace

RowLook::RowLook(const SkinData& data, int screenHeight)
    : skin(data), font(data.Listtextfont.size > 0 ? data.Listtextfont
                                                  : SkinFont{"DejaVu Sans", false, false, 18}),
      small(font), text(OrElse(data.HeadingBarForegroundClr, 0xE8E8E8)),
      back(ToQColor(data.ClockBackgroundClr)), ground(PlateGround(back)),
      chosen(ToQColor(OrElse(data.ListSelectedBackgroundClr, 0x30A0FF))) {
    const double scale = std::max(1.0, screenHeight / SkinHeight / data.FontScale());
    font.size = static_cast<std::int16_t>(std::lround(font.size * scale));
    small.size = static_cast<std::int16_t>(std::max(10, font.size * 5 / 6));
}

void RowLook::Dress(ShadedLabel& label, bool isChosen, bool enabled, bool lit) const {
    const QColor& usual = isChosen ? chosen : lit ? Lit : ground;
    const QColor plate = enabled ? usual : usual.darker(160);
    label.SetLook(font, text, skin);
    label.SetColour(ReadableOn(plate));
    label.SetGround(plate, RowRadius);
    label.update();
}

void RowLook::DressText(ShadedLabel& label) const {
    label.SetLook(small, text, skin);
    label.SetColour(ReadableOn(back));
    label.update();
}

} // namespace vk
