#include "skin/dialogs/message_overlay.h"

#include "skin/controls/looks.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr double PanelPart = 0.86;   // of the host's width
constexpr double LargestPart = 0.96; // of the host's height

} // namespace

MessageOverlay::MessageOverlay(QWidget* host, const DialogLook& look, const Clock& clock,
                               MessageTexts texts)
    : DialogOverlay(host, look, clock), texts_(std::move(texts)) {}

void MessageOverlay::Idle() {
    if (texts_.until && texts_.until()) Finish(true);
}

int MessageOverlay::HeadHeight() const {
    return QFontMetrics(look_.Font(height(), 0.8)).height() + Gap();
}

void MessageOverlay::LayOut() {
    const int margin = 2 * Gap();
    const int around = HeadHeight() + ButtonHeight() + 4 * margin;
    CentrePanel(PanelPart, height());
    const int scrollRoom = width() / 50;
    block_.Set(ToQString(texts_.text), look_.Font(height()),
               panel_.width() - 2 * margin - scrollRoom);
    const int largest = static_cast<int>(height() * LargestPart);
    CentrePanel(PanelPart, std::min(largest, block_.Height() + around));
    const QRect inner = panel_.adjusted(margin, margin, -margin, -margin);
    area_ = inner.adjusted(0, HeadHeight() + margin, 0, -(ButtonHeight() + margin));
    const QRect foot(inner.left(), inner.bottom() + 1 - ButtonHeight(), inner.width(),
                     ButtonHeight());
    std::vector<DialogCell> row{{{}, texts_.yes, [this] { Finish(!texts_.until); }}};
    if (!texts_.no.isEmpty()) row.push_back({{}, texts_.no, [this] { Finish(false); }});
    cells_.clear();
    AddRow(foot, row);
    if (marked_ < 0) marked_ = texts_.markNo ? 1 : 0;
    ScrollTo(offset_);
}

void MessageOverlay::ScrollTo(int offset) {
    offset_ = std::clamp(offset, 0, std::max(0, block_.Height() - area_.height()));
    update();
}

bool MessageOverlay::ContentKey(QKeyEvent& event) {
    const int step = area_.height() / 2, before = offset_;
    if (event.key() == Qt::Key_Up) ScrollTo(offset_ - step);
    if (event.key() == Qt::Key_Down) ScrollTo(offset_ + step);
    return offset_ != before;
}

void MessageOverlay::PressContent(QPoint point) {
    dragFrom_ = point.y() + offset_;
}

void MessageOverlay::DragContent(QPoint point) {
    ScrollTo(dragFrom_ - point.y());
}

void MessageOverlay::DrawContent(QPainter& painter) {
    const int margin = 2 * Gap();
    QRect head(panel_.left() + margin, panel_.top() + margin, panel_.width() - 2 * margin,
               HeadHeight());
    painter.setPen(look_.edge);
    painter.drawLine(head.bottomLeft(), head.bottomRight());
    if (texts_.kind != MessageKind::Plain) {
        DrawSign(painter, QRect(head.topLeft(), QSize(HeadHeight(), HeadHeight() - Gap())));
        head.setLeft(head.left() + HeadHeight() + Gap());
    }
    QFont font = look_.Font(height(), 0.8);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(look_.text);
    painter.drawText(
        head, Qt::AlignLeft | Qt::AlignTop,
        QFontMetrics(font).elidedText(TitleText(texts_.title), Qt::ElideRight, head.width()));
    painter.save();
    painter.setClipRect(area_);
    block_.Draw(painter, area_.topLeft() - QPoint(0, offset_));
    painter.restore();
    DrawScrollMark(painter, area_, block_.Height(), offset_);
}

void MessageOverlay::DrawSign(QPainter& painter, const QRect& box) const {
    const QColor ground =
        texts_.kind == MessageKind::Critical ? QColor(0xC6, 0x28, 0x28) : QColor(0xE0, 0x92, 0x20);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(QRect(box.topLeft(), QSize(box.height(), box.height())));
    QFont font = look_.Font(height(), 0.8);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(ReadableOn(ground));
    painter.drawText(QRect(box.topLeft(), QSize(box.height(), box.height())), Qt::AlignCenter,
                     QStringLiteral("!"));
}

} // namespace vk
