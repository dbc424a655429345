#include "skin/controls/plate.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr double SmallestCaption = 0.5; // of the font's size
constexpr int SmallestSize = 6;         // pixels
constexpr int CaptionFlags = Qt::AlignCenter | Qt::TextWordWrap;

} // namespace

bool TextFits(const QFont& font, const QString& text, QSize box, int flags) {
    const QRect needed = QFontMetrics(font).boundingRect(QRect(QPoint(0, 0), box), flags, text);
    return needed.width() <= box.width() && needed.height() <= box.height();
}

QFont FittingFont(const QFont& font, const QString& text, QSize box, int flags, double smallest) {
    QFont fitting = font;
    fitting.setPixelSize(std::max(SmallestSize, static_cast<int>(font.pixelSize() * smallest)));
    const bool low = QFontMetrics(fitting).height() > box.height();
    const int least = low ? SmallestSize : fitting.pixelSize();
    fitting = font;
    while (fitting.pixelSize() > least && !TextFits(fitting, text, box, flags))
        fitting.setPixelSize(fitting.pixelSize() - 1);
    return fitting;
}

void DrawCaptionPlate(QPainter& painter, const QRect& box, const QString& caption,
                      const QFont& font, const PlateLook& look) {
    const int radius = std::min(box.width(), box.height()) / 8;
    const double half = look.edgeWidth / 2.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look.edge, look.edgeWidth));
    painter.setBrush(look.ground);
    painter.drawRoundedRect(QRectF(box).adjusted(half, half, -half, -half), radius, radius);
    const int margin = std::max(4, radius / 2);
    const QRect inner = box.adjusted(margin, margin / 2, -margin, -margin / 2);
    painter.setPen(look.text);
    painter.setFont(FittingFont(font, caption, inner.size(), CaptionFlags, SmallestCaption));
    painter.drawText(inner, CaptionFlags, caption);
}

} // namespace vk
