#include "skin/controls/shaded_label.h"

#include "skin/controls/looks.h"
#include "skin/controls/plate.h"
#include "skin/controls/text_lines.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr double SmallestWords = 0.55; // of the font; below that words are broken in two

} // namespace

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

void ShadedLabel::SetFace(const QRect& face) {
    face_ = face;
    update();
}

void ShadedLabel::SetMargin(int margin) {
    margin_ = margin;
    update();
}

void ShadedLabel::SetLargest(int pixels) {
    if (pixels == largest_) return;
    largest_ = pixels;
    update();
}

void ShadedLabel::SetElide(Qt::TextElideMode mode) {
    elide_ = mode;
    update();
}

// Between words as far as that can be read, then anywhere: a path may have no place to break it.
ShadedLabel::Wrapped ShadedLabel::Wrap(const QFont& largest) const {
    const QString text = ToQString(text_);
    const QSize box = TextBox().size();
    const int words = static_cast<int>(alignment_) | Qt::TextWordWrap;
    const int anywhere = words | Qt::TextWrapAnywhere;
    const double part = static_cast<double>(font_.pixelSize()) / largest.pixelSize();
    const QFont font =
        FittingFont(largest, text, box, words, std::max(smallest_, SmallestWords) * part);
    if (smallest_ >= SmallestWords || TextFits(font, text, box, words)) return {font, words};
    return {FittingFont(largest, text, box, anywhere, smallest_ * part), anywhere};
}

void ShadedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect face = Face();
    if (ground_.isValid()) {
        painter.setRenderHint(QPainter::Antialiasing, radius_ > 0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground_);
        painter.drawRoundedRect(face, radius_, radius_);
    }
    wrap_ ? DrawWrapped(painter, TextBox()) : DrawLines(painter, TextBox());
}

// A text in the middle does not reach into the round corners, nor lines of it to the edges.
QRect ShadedLabel::TextBox() const {
    const int side = std::max(radius_ / 2, margin_), edge = radius_ / 6;
    return Face().adjusted(side, edge, -side, -edge);
}

int ShadedLabel::FittingSize() const {
    return Wrap(font_).font.pixelSize();
}

void ShadedLabel::DrawTwice(QPainter& painter, int pixelSize,
                            const std::function<void(QPoint offset)>& draw) const {
    const int offset = std::max(1, pixelSize / 14);
    painter.setPen(shadow_);
    if (shadow_.isValid()) draw({offset, offset});
    painter.setPen(colour_);
    draw({});
}

void ShadedLabel::DrawWrapped(QPainter& painter, const QRect& box) const {
    const QString text = ToQString(text_);
    QFont font = font_;
    if (largest_ > 0) font.setPixelSize(std::min(font.pixelSize(), largest_));
    const Wrapped wrapped = Wrap(font);
    painter.setFont(wrapped.font);
    DrawTwice(painter, wrapped.font.pixelSize(), [&](QPoint offset) {
        painter.drawText(box.translated(offset), wrapped.flags, text);
    });
}

void ShadedLabel::DrawLines(QPainter& painter, const QRect& box) const {
    const TextLines lines(ToQString(text_), font_, box.size(), smallest_, elide_);
    DrawTwice(painter, lines.PixelSize(),
              [&](QPoint offset) { lines.Draw(painter, box.translated(offset), alignment_); });
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
