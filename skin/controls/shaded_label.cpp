#include "skin/controls/shaded_label.h"

#include "skin/controls/looks.h"
#include "skin/controls/plate.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace vk {

ShadedLabel::ShadedLabel(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
}

void ShadedLabel::SetLook(const SkinFont& font, SkinColour colour, const SkinData& skin) {
    font_ = ToQFont(font, skin);
    colour_ = ToQColor(colour);
    update();
}

void ShadedLabel::SetText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    update();
}

void ShadedLabel::SetColour(const QColor& colour) {
    colour_ = colour;
    update();
}

void ShadedLabel::SetShadow(const QColor& colour) {
    shadow_ = colour;
    update();
}

void ShadedLabel::SetGround(const QColor& colour, int radius) {
    ground_ = colour;
    radius_ = radius;
    update();
}

void ShadedLabel::SetAlignment(Qt::Alignment alignment) {
    alignment_ = alignment;
    update();
}

void ShadedLabel::SetWrap(bool wrap) {
    wrap_ = wrap;
    update();
}

void ShadedLabel::SetShrink(double smallest) {
    smallest_ = smallest;
    update();
}

void ShadedLabel::SetElide(Qt::TextElideMode mode) {
    elide_ = mode;
    update();
}

int ShadedLabel::Flags() const {
    return static_cast<int>(alignment_) | (wrap_ ? Qt::TextWordWrap : 0);
}

QSize ShadedLabel::sizeHint() const {
    const QRect needed = QFontMetrics(font_).boundingRect(QRect(0, 0, QWIDGETSIZE_MAX, 1), Flags(),
                                                          ToQString(text_));
    return needed.size() + QSize(2 * radius_ + 2, 2);
}

QString ShadedLabel::ShownText(const QFont& font, const QRect& box) const {
    const QString text = ToQString(text_);
    if (wrap_ || text.contains(QLatin1Char('\n'))) return text;
    return QFontMetrics(font).elidedText(text, elide_, box.width());
}

void ShadedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (ground_.isValid()) {
        painter.setRenderHint(QPainter::Antialiasing, radius_ > 0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground_);
        painter.drawRoundedRect(rect(), radius_, radius_);
    }
    const QRect box = rect().adjusted(radius_, 0, -radius_, 0);
    const QFont font = FittingFont(font_, ToQString(text_), box.size(), Flags(), smallest_);
    const QString shown = ShownText(font, box);
    painter.setFont(font);
    if (shadow_.isValid()) {
        const int offset = std::max(1, font.pixelSize() / 14);
        painter.setPen(shadow_);
        painter.drawText(box.translated(offset, offset), Flags(), shown);
    }
    painter.setPen(colour_);
    painter.drawText(box, Flags(), shown);
}

void ShadedLabel::OnClick(Commands& commands, std::function<void()> click) {
    click_ = [&commands, click = std::move(click)] { commands.Run(click); };
}

void ShadedLabel::mousePressEvent(QMouseEvent* event) {
    pressed_ = static_cast<bool>(click_);
    event->setAccepted(pressed_);
}

void ShadedLabel::mouseReleaseEvent(QMouseEvent* event) {
    const bool clicked = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    if (clicked) click_();
}

} // namespace vk
