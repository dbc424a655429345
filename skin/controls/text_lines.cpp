#include "skin/controls/text_lines.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

constexpr int SmallestSize = 6; // pixels
constexpr double Leading = 0.2; // between two lines, of the upper one's height

// From the top of a capital to the foot of a "g".
QRectF Inked(const QFont& font) {
    return QFontMetricsF(font).tightBoundingRect(QStringLiteral("Hg"));
}

int Tall(const QFont& font) {
    return static_cast<int>(std::ceil(Inked(font).height()));
}

// Blanks at an end are only for room, those between two texts are where it is broken.
QStringList Broken(QString text, const QFont& font, int width) {
    const auto tooWide = [&] { return QFontMetricsF(font).horizontalAdvance(text) > width; };
    if (tooWide()) text = text.trimmed();
    if (tooWide()) text.replace(QStringLiteral("    "), QStringLiteral("\n"));
    return text.split(QLatin1Char('\n'));
}

void Scale(QFont& font, double part, int least) {
    font.setPixelSize(std::max(least, static_cast<int>(font.pixelSize() * part)));
}

} // namespace

TextLines::TextLines(const QString& text, const QFont& font, QSize box, double smallest,
                     Qt::TextElideMode elide) {
    const int least = std::max(SmallestSize, static_cast<int>(font.pixelSize() * smallest));
    for (const QString& line : Broken(text, font, box.width())) {
        lines_.push_back({line, font});
        const double wide = QFontMetricsF(font).horizontalAdvance(line);
        if (wide > box.width()) Scale(lines_.back().font, box.width() / wide, least);
    }
    if (lines_.size() == 1 && !Fit(box)) BreakAtABlank(box);
    if (const int tall = Height(); tall > box.height())
        for (Line& line : lines_)
            Scale(line.font, static_cast<double>(box.height()) / tall, SmallestSize);
    for (Line& line : lines_)
        line.text = QFontMetricsF(line.font).elidedText(line.text, elide, box.width());
}

bool TextLines::Fit(QSize box) const {
    return Height() <= box.height() && std::ranges::all_of(lines_, [&](const Line& line) {
               return QFontMetricsF(line.font).horizontalAdvance(line.text) <= box.width();
           });
}

// In two lines all of it can be read, or it stays one that is cut.
void TextLines::BreakAtABlank(QSize box) {
    const Line whole = lines_.front();
    const QString& text = whole.text;
    for (auto at = text.lastIndexOf(QLatin1Char(' ')); at > 0;
         at = text.lastIndexOf(QLatin1Char(' '), at - 1)) {
        lines_ = {{text.left(at), whole.font}, {text.mid(at + 1), whole.font}};
        if (Fit(box)) return;
    }
    lines_ = {whole};
}

int TextLines::Height() const {
    double height = 0;
    for (const Line& line : lines_)
        height += Tall(line.font) * (&line == &lines_.back() ? 1 : 1 + Leading);
    return static_cast<int>(std::ceil(height));
}

int TextLines::PixelSize() const {
    const auto size = [](const Line& line) { return line.font.pixelSize(); };
    return size(*std::ranges::max_element(lines_, {}, size));
}

void TextLines::Draw(QPainter& painter, const QRect& box, Qt::Alignment alignment) const {
    const int top = box.top() + (box.height() - Height()) / 2;
    double y = top;
    for (const Line& line : lines_) {
        const double spare = box.width() - QFontMetricsF(line.font).horizontalAdvance(line.text);
        const double x = alignment.testFlag(Qt::AlignRight)  ? spare
                         : alignment.testFlag(Qt::AlignLeft) ? 0
                                                             : std::floor(spare / 2);
        painter.setFont(line.font);
        painter.drawText(QPointF(box.left() + x, y - Inked(line.font).top()), line.text);
        y += Tall(line.font) * (1 + Leading);
    }
}

} // namespace vk
