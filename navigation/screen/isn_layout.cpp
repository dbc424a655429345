#include "navigation/screen/isn_layout.h"

#include "skin/touch_target.h"

#include <cmath>

namespace vk {

namespace {

constexpr double PixelsPerPoint = 96.0 / 72;
constexpr double LineHeight = 1.3; // of a font's size

int Scaled(int length, float scale) {
    return static_cast<int>(std::lround(static_cast<double>(length) * static_cast<double>(scale)));
}

} // namespace

IsnLayout::IsnLayout(const IsnSkin& skin, QSize screen) : screen_(screen), skin_(&skin) {
    if (skin.width <= 0 || skin.height <= 0) return;
    scaleX_ = static_cast<float>(screen.width()) / static_cast<float>(skin.width);
    scaleY_ = static_cast<float>(screen.height()) / static_cast<float>(skin.height);
}

// By its edges, so that what adjoins in the skin does so here.
QRect IsnLayout::Place(const IsnBox& box) const {
    const int left = Scaled(box.left, scaleX_), top = Scaled(box.top, scaleY_);
    const int right = Scaled(box.left + box.width, scaleX_);
    const int foot = Scaled(box.top + box.height, scaleY_);
    return QRect(left, top, right - left, foot - top) & QRect(QPoint(), screen_);
}

QRect IsnLayout::Place(const IsnSkin::Label& label) const {
    const double height = label.font.size * PixelsPerPoint * LineHeight;
    return Place(IsnBox{label.left, label.top, label.width, static_cast<int>(height)});
}

int IsnLayout::FontSize(const IsnFont& font) const {
    return Scaled(font.size, scaleY_);
}

QRect IsnLayout::Map(bool audio) const {
    if (!skin_) return {};
    for (const char* name : {audio ? "MUSIC" : "STANDARD", audio ? "STANDARD" : "MUSIC"})
        if (const auto area = skin_->areas.find(name); area != skin_->areas.end())
            return Place(area->second);
    const bool none = skin_->width == 0 && skin_->buttons.empty();
    if (!none && scaleX_ <= 0) return {};
    return {0, 0, screen_.width(), screen_.height() - TouchSide(screen_.height())};
}

QRect IsnLayout::Bar() const {
    const QRect bar = skin_ && skin_->bar ? Place(skin_->bar->place) : QRect();
    return bar.isEmpty() ? QRect(0, 0, screen_.width(), screen_.height() / 8) : bar;
}

} // namespace vk
