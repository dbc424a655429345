#include "skin/dialogs/folder_overlay.h"

#include "skin/controls/looks.h"
#include "skin/controls/plate.h"
#include "skin/touch_target.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <cstdlib>

namespace vk {

namespace {

constexpr double ColumnPart = 0.27; // of the panel's width
constexpr double HintSize = 0.7;    // of the text's
constexpr double SmallestHint = 0.6;
constexpr std::int64_t LookMs = 1000;
constexpr int LargestCaption = 3; // lines
constexpr const char* Hint =
    "Up/Down: choose   Enter: open   Right: buttons   Left: list   Esc: cancel";

} // namespace

FolderOverlay::FolderOverlay(QWidget* host, const DialogLook& look, const Clock& clock,
                             Dialogs& dialogs, FolderRows rows, const std::string& caption)
    : DialogOverlay(host, look, clock), dialogs_(dialogs), rows_(std::move(rows)),
      caption_(ToQString(caption)) {}

void FolderOverlay::LayOut() {
    const int gap = Gap();
    panel_ = rect().adjusted(gap / 2, gap / 2, -gap / 2, -gap / 2);
    const QRect inner = panel_.adjusted(gap, gap, -gap, -gap);
    const QFont font = look_.Font(height(), 0.85);
    captionBlock_.Set(caption_, font, inner.width());
    const int line = QFontMetrics(font).height();
    captionBox_ =
        QRect(inner.topLeft(),
              QSize(inner.width(), std::min(captionBlock_.Height(), LargestCaption * line)));
    pathBox_ = QRect(inner.left(), captionBox_.bottom() + gap / 2, inner.width(), line + gap / 2);
    const int hint = QFontMetrics(look_.Font(height(), HintSize)).height();
    hintBox_ = QRect(inner.left(), inner.bottom() + 1 - hint, inner.width(), hint);
    const QRect body(QPoint(inner.left(), pathBox_.bottom() + gap),
                     QPoint(inner.right(), hintBox_.top() - gap / 2));
    const int column = static_cast<int>(inner.width() * ColumnPart);
    list_ = body.adjusted(0, 0, -(column + gap), 0);
    // Whole rows that fill the list, each high enough for a finger.
    rowHeight_ = std::max(1, list_.height() / std::max(1, list_.height() / TouchSide(height())));
    cells_.clear();
    AddButtons(QRect(body.right() + 1 - column, body.top(), column, body.height()));
    ScrollTo(first_);
}

// The page buttons are for the finger; the keys have Up and Down.
void FolderOverlay::AddButtons(const QRect& column) {
    const int gap = Gap() / 2;
    const int high = std::max(ButtonHeight(), (column.height() - 3 * gap) / 4);
    const auto line = [&](int index) {
        return QRect(column.left(), column.top() + index * (high + gap), column.width(), high);
    };
    const bool inFolder = !rows_.Path().empty();
    const auto page = [this](int pages) {
        return [this, pages] { ScrollTo(first_ + pages * VisibleRows()); };
    };
    if (!rows_.Files()) {
        AddRow(
            line(0),
            {{{}, QStringLiteral("Select this folder"), [this] { Finish(true); }, true, inFolder}});
        AddRow(line(1),
               {{{}, QStringLiteral("New folder"), [this] { NewFolder(); }, true, inFolder}});
    }
    AddRow(line(2), {{{}, QStringLiteral("Cancel"), [this] { Finish(false); }}});
    cancel_ = static_cast<int>(cells_.size()) - 1;
    AddRow(line(3), {{{}, QStringLiteral("\u25B2"), page(-1), false},
                     {{}, QStringLiteral("\u25BC"), page(1), false}});
}

// A new medium is what the user wants to see: the mark goes there.
void FolderOverlay::Idle() {
    const std::int64_t now = clock_.TickMs();
    if (now - looked_ < LookMs) return;
    looked_ = now;
    if (!rows_.LookForMedia()) return;
    Select(0);
    update();
}

int FolderOverlay::VisibleRows() const {
    return std::max(1, list_.height() / rowHeight_);
}

void FolderOverlay::ScrollTo(int first) {
    first_ = std::clamp(first, 0, std::max(0, Count() - VisibleRows()));
    update();
}

void FolderOverlay::Select(int row) {
    selected_ = std::clamp(row, 0, std::max(0, Count() - 1));
    ScrollTo(std::clamp(first_, selected_ - VisibleRows() + 1, selected_));
}

void FolderOverlay::MarkRow(int row) {
    marked_ = -1;
    Select(row);
}

bool FolderOverlay::ContentKey(QKeyEvent& event) {
    const int key = event.key();
    if (InList()) return ListKey(key) || GoToLetter(event.text());
    const bool up = key == Qt::Key_Up && marked_ == FirstButton();
    const bool down = key == Qt::Key_Down && marked_ == cancel_;
    if (key == Qt::Key_Left || up || down) MarkRow(up ? Count() - 1 : down ? 0 : selected_);
    return InList();
}

bool FolderOverlay::ListKey(int key) {
    switch (key) {
    case Qt::Key_Up:
        selected_ == 0 ? void(marked_ = cancel_) : Select(selected_ - 1);
        return true;
    case Qt::Key_Down:
        selected_ + 1 >= Count() ? void(marked_ = FirstButton()) : Select(selected_ + 1);
        return true;
    case Qt::Key_PageUp:
        Select(selected_ - VisibleRows());
        return true;
    case Qt::Key_PageDown:
        Select(selected_ + VisibleRows());
        return true;
    case Qt::Key_Right:
        marked_ = FirstButton();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        EnterRow();
        return true;
    default:
        return false;
    }
}

// To the next row that begins so, from the end on to the first.
bool FolderOverlay::GoToLetter(const QString& typed) {
    if (typed.size() != 1 || !typed[0].isLetterOrNumber()) return false;
    for (int step = 1; step <= Count(); ++step) {
        const int row = (selected_ + step) % Count();
        const QString name = ToQString(rows_.Rows()[static_cast<std::size_t>(row)].caption);
        if (name.startsWith(typed, Qt::CaseInsensitive)) return Select(row), true;
    }
    return true;
}

// What is drawn of it is thin for a finger.
bool FolderOverlay::OnScrollMark(QPoint point) const {
    return Count() > VisibleRows() && point.x() > list_.right() - 2 * Gap() &&
           list_.adjusted(0, 0, 2 * Gap(), 0).contains(point);
}

// After the way up the cursor stands on the folder that was left.
void FolderOverlay::EnterRow() {
    if (selected_ >= Count()) return;
    const FolderRow entered = rows_.Rows()[static_cast<std::size_t>(selected_)];
    if (entered.ends) {
        chosen_ = entered.path;
        return Finish(true);
    }
    const std::string left = rows_.Path();
    rows_.Enter(entered.path);
    const auto& rows = rows_.Rows();
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const FolderRow& row) { return row.path == left; });
    const bool up = found != rows.end() && !left.empty() && found->caption != "<...>";
    LayOut();
    first_ = 0;
    Select(up ? static_cast<int>(found - rows.begin()) : 0);
}

void FolderOverlay::NewFolder() {
    const QPointer<FolderOverlay> alive(this);
    const auto name = dialogs_.InputBox("Name of the new folder:", "New folder", "");
    if (!alive || !name) return;
    if (!rows_.Make(*name)) dialogs_.ShowMessage("The folder could not be made.", "New folder");
    if (!alive) return;
    marked_ = 0;
    first_ = 0;
    Select(0);
}

void FolderOverlay::PressContent(QPoint point) {
    dragFrom_ = point.y();
    dragFirst_ = first_;
    dragged_ = onMark_ = OnScrollMark(point);
    if (onMark_) return DragContent(point);
    if (!list_.contains(point)) return;
    marked_ = -1;
    const int row = first_ + (point.y() - list_.top()) / rowHeight_;
    if (row < Count()) selected_ = row;
}

void FolderOverlay::DragContent(QPoint point) {
    const int middle = VisibleRows() / 2, down = point.y() - list_.top();
    if (onMark_) return ScrollTo(down * Count() / std::max(1, list_.height()) - middle);
    const int way = dragFrom_ - point.y();
    if (std::abs(way) < rowHeight_ / 2 && !dragged_) return;
    dragged_ = true;
    ScrollTo(dragFirst_ + way / rowHeight_);
}

void FolderOverlay::ReleaseContent(QPoint point) {
    const int row = first_ + (point.y() - list_.top()) / rowHeight_;
    if (!dragged_ && list_.contains(point) && row == selected_) EnterRow();
}

void FolderOverlay::DrawContent(QPainter& painter) {
    DrawHead(painter);
    const int end = std::min(Count(), first_ + VisibleRows());
    for (int row = first_; row < end; ++row)
        DrawRow(painter, row);
    DrawScrollMark(painter, list_, Count() * rowHeight_, first_ * rowHeight_);
}

void FolderOverlay::DrawHead(QPainter& painter) const {
    painter.setPen(look_.text);
    painter.save();
    painter.setClipRect(captionBox_);
    captionBlock_.Draw(painter, captionBox_.topLeft());
    painter.restore();
    painter.fillRect(pathBox_, look_.plate);
    QFont font = look_.Font(height(), 0.85);
    font.setBold(true);
    painter.setFont(font);
    const QString path = ToQString(rows_.Heading());
    const QRect box = pathBox_.adjusted(Gap(), 0, -Gap(), 0);
    painter.drawText(box, Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(path, Qt::ElideMiddle, box.width()));
    const QString hint = QString::fromLatin1(Hint);
    painter.setFont(FittingFont(look_.Font(height(), HintSize), hint, hintBox_.size(),
                                Qt::AlignCenter, SmallestHint));
    painter.drawText(hintBox_, Qt::AlignCenter, hint);
}

void FolderOverlay::DrawRow(QPainter& painter, int row) const {
    const QRect box(list_.left(), list_.top() + (row - first_) * rowHeight_, list_.width(),
                    rowHeight_);
    const bool marked = row == selected_ && InList();
    const QRect plate = box.adjusted(0, 0, -2 * Gap(), 0);
    if (marked) painter.fillRect(plate, look_.mark);
    painter.setPen(look_.edge);
    painter.drawLine(plate.bottomLeft(), plate.bottomRight());
    if (row == selected_ && !marked) painter.drawRect(plate.adjusted(0, 0, -1, -1));
    const QFont font = look_.Font(height());
    painter.setFont(font);
    painter.setPen(marked ? look_.markText : look_.text);
    const QRect text = plate.adjusted(Gap(), 0, -Gap(), 0);
    const auto& shown = rows_.Rows()[static_cast<std::size_t>(row)];
    painter.drawText(
        text, Qt::AlignVCenter,
        QFontMetrics(font).elidedText(ToQString(shown.caption), Qt::ElideMiddle, text.width()));
}

} // namespace vk
