#include "skin/dialogs/dialog_look.h"

#include "skin/controls/looks.h"

#include <algorithm>

namespace vk {

namespace {

QColor Mixed(const QColor& a, const QColor& b, double part) {
    return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - part) + b.redF() * part),
                            static_cast<float>(a.greenF() * (1 - part) + b.greenF() * part),
                            static_cast<float>(a.blueF() * (1 - part) + b.blueF() * part));
}

} // namespace

QFont DialogLook::Font(int screenHeight, double scale) const {
    QFont font(family);
    font.setPixelSize(std::max(12, static_cast<int>(screenHeight / 17.0 * scale)));
    return font;
}

DialogLook DialogLookOf(const SkinStore* skin) {
    DialogLook look;
    if (!skin || skin->Generation() == 0) return look;
    const SkinData& data = skin->data();
    look.panel = ToQColor(data.OSKBGClr);
    look.text = Legible(ToQColor(data.OSKTextClr), look.panel);
    look.edge = Mixed(look.text, look.panel, 0.45);
    look.plate = Mixed(look.panel, look.text, 0.1);
    look.mark = ToQColor(data.OSKSelBoxClr);
    look.markText = Legible(look.text, look.mark);
    look.family = ToQString(data.headingbarfont.name);
    return look;
}

} // namespace vk
