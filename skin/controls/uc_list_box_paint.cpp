// How the list is drawn: ground, rows, rules, arrows.
#include "skin/controls/looks.h"
#include "skin/controls/plate.h"
#include "skin/controls/uc_list_box.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr int PlateAlpha = 44;         // of 255: the text on the plate must stay readable
constexpr double LeastFirstPart = 0.3; // of the width, when both texts together are too long

// What stands for an arrow that the skin lacks.
void DrawTrianglePlate(QPainter& painter, const QRect& place, const QColor& ground, bool up) {
    const QColor ink = ReadableOn(ground);
    DrawCaptionPlate(painter, place, {}, painter.font(), {ground, ink, ink});
    const QRectF box = QRectF(place).marginsRemoved(
        {place.width() / 4.0, place.height() / 4.0, place.width() / 4.0, place.height() / 4.0});
    const double base = up ? box.bottom() : box.top();
    const QPointF tip(box.center().x(), up ? box.top() : box.bottom());
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(QPolygonF({{box.left(), base}, {box.right(), base}, tip}));
}

} // namespace

bool UCListBox::IsSelectedRow(int row) const {
    return row == model_.iSelected;
}

// The rules of a selected row reach into its neighbours.
QRect UCListBox::RowRect(int row) const {
    const int y = (row - model_.TopRow()) * model_.RowHeight;
    const int margin = model_.TextHeight / 4 + 2;
    return QRect(0, y, width(), model_.RowHeight).adjusted(0, -margin, 0, margin);
}

UCListBox::RowLook UCListBox::LookOf(int row) const {
    const SkinData& skin = context_.skin.data();
    const bool selected = IsSelectedRow(row);
    const bool playing = ShowHighlight && row == model_.iHighlight;
    const bool folder = model_.Row(row).descriptor.starts_with("PATH:");
    RowLook look;
    look.first = ToQColor(playing    ? skin.currentsongclr
                          : selected ? skin.ListTextSelectedClr
                          : folder   ? skin.PlayListFolderClr
                                     : skin.ListForegroundClr);
    look.second = ToQColor(selected  ? skin.ListTitleSelectedClr
                           : playing ? skin.currentsongclr
                                     : skin.ListTitleClr);
    look.shadow = ShadowFor(look.first);
    look.bright = selected || playing;
    return look;
}

void UCListBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    DrawGround(painter);
    if (!model_.CanDraw()) return;
    painter.setFont(font_);
    const int top = model_.TopRow();
    const int end = std::min(model_.ItemCount(), top + model_.iMaxVis);
    for (int row = top; row < end; ++row)
        if (RowRect(row).intersects(event->rect())) DrawRow(painter, row);
    if (context_.settings.bTSModeEnabled) DrawArrows(painter);
}

void UCListBox::DrawGround(QPainter& painter) const {
    ground_.Draw(painter, {});
}

void UCListBox::DrawRow(QPainter& painter, int row) {
    if (IsSelectedRow(row) && ShowFocusBar && context_.settings.ShowSelBar)
        DrawSelection(painter, row);
    DrawText(painter, row);
    DrawRowPicture(painter, row);
}

// The top row has no room for a rule above it; the one below is doubled.
void UCListBox::DrawSelection(QPainter& painter, int row) const {
    const int h = model_.TextHeight;
    const int y = (row - model_.TopRow()) * model_.RowHeight;
    const int upper = y - h / 10;
    const int lower = y + model_.RowHeight - h / 6;
    const int thick = std::max(2, h / 14);
    const QColor colour = ToQColor(context_.skin.data().ListSelectedBackgroundClr);
    QColor plate = colour;
    plate.setAlpha(PlateAlpha);
    painter.fillRect(0, upper, width(), lower - upper, plate);
    const bool topRow = row == model_.TopRow();
    if (!topRow) painter.fillRect(0, upper, width(), thick, colour);
    painter.fillRect(0, lower, width(), topRow ? 2 * thick : thick, colour);
}

// The strips' arrows stand on the first and the last row of a page.
int UCListBox::TextRoom(int row) const {
    const int room = width() - 2 * model_.TextHeight - model_.TextHeight / 4;
    const int top = model_.TopRow();
    const int last = top + model_.iMaxVis - 1;
    const bool up = row == top && top > 0;
    const bool down = row == last && last + 1 < model_.ItemCount();
    if (!context_.settings.bTSModeEnabled || !(up || down)) return room;
    return room - ArrowSize(up).width();
}

UCListBox::RowTexts UCListBox::TextsOf(int row, const QFontMetrics& metrics) const {
    const int room = TextRoom(row);
    QString first = ToQString(model_.ShownFirst(row));
    const QString second = ToQString(model_.Row(row).second);
    const int wish = room - metrics.horizontalAdvance(second);
    const int part = std::max(wish, static_cast<int>(room * LeastFirstPart));
    if (!second.isEmpty() && metrics.horizontalAdvance(first) > part) {
        const QString dash = QStringLiteral(" - ");
        const QString end = first.endsWith(dash) ? dash : QString();
        first.chop(end.size());
        first = metrics.elidedText(first, Qt::ElideRight, part - metrics.horizontalAdvance(end));
        first += end;
    }
    first = metrics.elidedText(first, Qt::ElideRight, room);
    const int after = metrics.horizontalAdvance(first);
    return {first, metrics.elidedText(second, Qt::ElideRight, room - after), after};
}

void UCListBox::DrawText(QPainter& painter, int row) const {
    const int h = model_.TextHeight;
    if (model_.Row(row).descriptor.empty()) painter.setFont(NoticeFont(row));
    const QFontMetrics metrics = painter.fontMetrics();
    const RowTexts texts = TextsOf(row, metrics);
    const RowLook look = LookOf(row);
    const auto print = [&](QPoint at, const QColor& first, const QColor& second) {
        painter.setPen(first);
        painter.drawText(at, texts.first);
        painter.setPen(second);
        painter.drawText(at + QPoint(texts.firstWidth, 0), texts.second);
    };
    const int y = (row - model_.TopRow()) * model_.RowHeight + TextTop();
    const QPoint origin(2 * h, y + (h - metrics.height()) / 2 + metrics.ascent());
    if (look.bright) print(origin + QPoint(h / 10, h / 15), look.shadow, look.shadow);
    print(origin, look.first, look.second);
    painter.setFont(font_);
}

// At the row's top, as long as the rules are near the text; in a row with more room in its middle.
int UCListBox::TextTop() const {
    return std::max(0, model_.RowHeight - model_.TextHeight * 4 / 3) / 2;
}

// A notice is read whole: it has no second row and nothing else tells what it says.
QFont UCListBox::NoticeFont(int row) const {
    const int wanted = QFontMetrics(font_).horizontalAdvance(ToQString(model_.ShownFirst(row)));
    const int room = TextRoom(row);
    if (wanted <= room || wanted <= 0) return font_;
    QFont smaller = font_;
    smaller.setPixelSize(std::max(1, font_.pixelSize() * room / wanted));
    return smaller;
}

void UCListBox::DrawRowPicture(QPainter& painter, int row) {
    const int h = model_.TextHeight;
    const int rowHeight = model_.RowHeight;
    const int side = rowHeight - rowHeight / 8;
    const int y = (row - model_.TopRow()) * rowHeight;
    const ListRow& shown = model_.Row(row);
    const QPixmap picture = context_.pictures.Picture(shown.picture, {side, side});
    if (!picture.isNull()) painter.drawPixmap(h / 5, y - rowHeight / 25, picture);
    if (shown.icon == 0 || !iconPicture) return;
    painter.drawPixmap(h / 5, y - h / 15 + rowHeight / 15, iconPicture(shown.icon, {side, side}));
}

// The box begins at a quarter of the width.
QSize UCListBox::ArrowBox() const {
    return {width() - width() / 4, height() / 15};
}

QPixmap UCListBox::ArrowPicture(bool up) const {
    // The text of its row needs the rest of a narrow list.
    return context_.pictures.Picture(up ? arrowUp_ : arrowDown_,
                                     {width() / 4, ArrowBox().height()});
}

QSize UCListBox::ArrowSize(bool up) const {
    const int height = ArrowBox().height();
    const QPixmap arrow = ArrowPicture(up);
    return arrow.isNull() ? QSize(2 * height, height) : arrow.size();
}

void UCListBox::DrawArrows(QPainter& painter) const {
    const int top = model_.TopRow();
    if (top > 0) DrawArrow(painter, true);
    if (top + model_.iMaxVis < model_.ItemCount()) DrawArrow(painter, false);
}

// It stands at the right end of its box, where the strip answers to touches.
void UCListBox::DrawArrow(QPainter& painter, bool up) const {
    const QSize size = ArrowSize(up);
    const QRect place({width() - size.width(), up ? 0 : height() - size.height()}, size);
    const QPixmap arrow = ArrowPicture(up);
    if (arrow.isNull())
        DrawTrianglePlate(painter, place, ToQColor(context_.skin.data().ListSelectedBackgroundClr),
                          up);
    else
        painter.drawPixmap(place.topLeft(), arrow);
}

} // namespace vk
