// How a dialog's panel and buttons stand and look.
#include "skin/controls/looks.h"
#include "skin/controls/plate.h"
#include "skin/dialogs/dialog_overlay.h"

#include <QPainter>

#include <algorithm>

namespace vk {

void DialogOverlay::CentrePanel(double part, int height) {
    panel_ = QRect(0, 0, static_cast<int>(width() * part), height);
    panel_.moveCenter(rect().center());
}

void DialogOverlay::AddRow(const QRect& box, const std::vector<DialogCell>& row) {
    const int count = static_cast<int>(row.size());
    const int gap = Gap();
    const int wide = (box.width() - gap * (count - 1)) / count;
    int x = box.x();
    for (DialogCell cell : row) {
        cell.box = QRect(x, box.y(), wide, box.height());
        cells_.push_back(std::move(cell));
        x += wide + gap;
    }
}

QString DialogOverlay::TitleText(const std::string& title) {
    return title.empty() ? QStringLiteral("Velkorandum") : ToQString(title);
}

void DialogOverlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0, 0, 0, 150));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look_.edge, 2));
    painter.setBrush(look_.panel);
    painter.drawRoundedRect(QRectF(panel_).adjusted(1, 1, -1, -1), Gap(), Gap());
    painter.save();
    DrawContent(painter);
    painter.restore();
    for (std::size_t i = 0; i < cells_.size(); ++i)
        DrawCell(painter, static_cast<int>(i));
}

void DialogOverlay::DrawCell(QPainter& painter, int index) const {
    const DialogCell& cell = cells_[static_cast<std::size_t>(index)];
    const bool chosen = cell.usable && (index == marked_ || index == pressed_);
    PlateLook plate;
    plate.ground = chosen ? look_.mark : look_.plate;
    plate.edge = chosen ? look_.text : look_.edge;
    plate.text = !cell.usable ? look_.edge : chosen ? look_.markText : look_.text;
    plate.edgeWidth = chosen ? 3 : 1;
    DrawCaptionPlate(painter, cell.box, cell.caption, look_.Font(height()), plate);
}

void DialogOverlay::DrawScrollMark(QPainter& painter, const QRect& area, int whole,
                                   int offset) const {
    if (whole <= area.height()) return;
    const double part = static_cast<double>(area.height()) / whole;
    const int thick = std::max(6, width() / 100);
    const QRectF track(area.right() - thick, area.top(), thick, area.height());
    QRectF thumb = track;
    thumb.setHeight(std::max(20.0, track.height() * part));
    thumb.moveTop(track.top() +
                  (track.height() - thumb.height()) * offset / std::max(1, whole - area.height()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(look_.plate);
    painter.drawRect(track);
    painter.setBrush(look_.edge);
    painter.drawRoundedRect(thumb, thick / 2.0, thick / 2.0);
}

} // namespace vk
