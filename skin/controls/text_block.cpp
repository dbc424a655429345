#include "skin/controls/text_block.h"

#include <QPainter>

#include <cmath>

namespace vk {

void TextBlock::Set(const QString& text, const QFont& font, int width) {
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setText(lines);
    layout_.setFont(font);
    layout_.setTextOption(option);
    qreal y = 0;
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, y});
        y += line.height();
    }
    layout_.endLayout();
    height_ = static_cast<int>(std::ceil(y));
}

void TextBlock::Draw(QPainter& painter, QPointF at) const {
    layout_.draw(&painter, at);
}

} // namespace vk
