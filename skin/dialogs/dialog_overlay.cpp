#include "skin/dialogs/dialog_overlay.h"

#include "skin/controls/looks.h"
#include "skin/controls/nearest_box.h"
#include "skin/controls/plate.h"
#include "skin/mark_lines.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace vk {

namespace {

constexpr int DeafMs = 250; // the second press of a double press belongs to what was there before

bool Answers(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

} // namespace

DialogOverlay::DialogOverlay(QWidget* host, DialogLook look, const Clock& clock)
    : QWidget(host), clock_(clock), look_(std::move(look)) {
    setFocusPolicy(Qt::StrongFocus);
    hide();
}

void DialogOverlay::Open() {
    openedMs_ = clock_.TickMs();
    setGeometry(parentWidget()->rect());
    LayOut();
    show();
    raise();
    setFocus();
}

void DialogOverlay::Finish(bool accepted) {
    if (finished_) return;
    finished_ = true;
    accepted_ = accepted;
}

void DialogOverlay::SetFront(bool front) {
    if (front)
        QCoreApplication::instance()->installEventFilter(this);
    else
        QCoreApplication::instance()->removeEventFilter(this);
}

bool DialogOverlay::eventFilter(QObject* target, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(target);
    if (!widget || widget == this || widget->window() != window()) return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
        return true;
    case QEvent::ZOrderChange:
        // What lets touches through (the dark pane) lies over dialogs, too.
        if (!widget->testAttribute(Qt::WA_TransparentForMouseEvents)) raise();
        return false;
    case QEvent::Resize:
        if (widget == parentWidget()) setGeometry(widget->rect());
        return false;
    default:
        return false;
    }
}

void DialogOverlay::resizeEvent(QResizeEvent*) {
    LayOut();
}

bool DialogOverlay::TooEarly() const {
    return clock_.TickMs() - openedMs_ < DeafMs;
}

bool DialogOverlay::ContentKey(QKeyEvent&) {
    return false;
}

void DialogOverlay::keyPressEvent(QKeyEvent* event) {
    event->accept();
    const Qt::Key key = meaning ? meaning(*event) : Qt::Key_unknown;
    const bool pages = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (key != Qt::Key_unknown && !(pages && TakesText())) return Press(key, event->isAutoRepeat());
    UseKey(*event);
}

void DialogOverlay::UseKey(QKeyEvent& event) {
    if (finished_ || (Answers(event.key()) && (event.isAutoRepeat() || TooEarly()))) return;
    if (ContentKey(event)) return update();
    switch (event.key()) {
    case Qt::Key_Left:
        MoveMark(-1, 0);
        break;
    case Qt::Key_Right:
        MoveMark(1, 0);
        break;
    case Qt::Key_Up:
        MoveMark(0, -1);
        break;
    case Qt::Key_Down:
        MoveMark(0, 1);
        break;
    case Qt::Key_Escape:
        return Finish(false);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Activate(marked_);
    default:
        break;
    }
}

void DialogOverlay::Press(Qt::Key key, bool repeat) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, {}, repeat);
    UseKey(event);
}

void DialogOverlay::MoveMark(int dx, int dy) {
    if (marked_ < 0) return;
    dx != 0 ? MarkBeside(dx) : MarkInColumn(dy);
    update();
}

void DialogOverlay::MarkBeside(int dx) {
    std::vector<QRect> boxes;
    for (const DialogCell& cell : cells_)
        boxes.push_back(cell.byKeys && cell.usable ? cell.box : QRect());
    const int best = NearestBox(cells_[static_cast<std::size_t>(marked_)].box, boxes, dx, 0);
    if (best >= 0) marked_ = best;
}

void DialogOverlay::MarkInColumn(int dy) {
    std::vector<LineSpot> spots;
    for (const DialogCell& cell : cells_)
        spots.push_back(
            {cell.box.top(), cell.box.left() + cell.box.right(), cell.byKeys && cell.usable});
    if (columnOf_ != marked_) column_ = spots[static_cast<std::size_t>(marked_)].centre;
    columnOf_ = marked_ = NextInLines(spots, marked_, dy, column_);
}

void DialogOverlay::Activate(int cell) {
    if (cell < 0 || cell >= static_cast<int>(cells_.size())) return;
    if (!cells_[static_cast<std::size_t>(cell)].usable) return;
    const auto act = cells_[static_cast<std::size_t>(cell)].act;
    const QPointer<DialogOverlay> alive(this);
    act();
    if (alive) update();
}

int DialogOverlay::CellAt(QPoint point) const {
    const auto found = std::find_if(cells_.begin(), cells_.end(), [&](const DialogCell& cell) {
        return cell.box.contains(point);
    });
    return found == cells_.end() ? -1 : static_cast<int>(found - cells_.begin());
}

void DialogOverlay::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (finished_ || TooEarly()) return;
    const QPoint point = event->position().toPoint();
    pressed_ = CellAt(point);
    pressOnContent_ = pressed_ < 0 && panel_.contains(point);
    if (pressed_ >= 0) {
        const DialogCell& cell = cells_[static_cast<std::size_t>(pressed_)];
        if (cell.byKeys && cell.usable) marked_ = pressed_;
    }
    if (pressOnContent_) PressContent(point);
    update();
}

void DialogOverlay::mouseMoveEvent(QMouseEvent* event) {
    if (pressOnContent_) DragContent(event->position().toPoint());
}

void DialogOverlay::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const int cell = pressed_;
    const bool onContent = pressOnContent_;
    pressed_ = -1;
    pressOnContent_ = false;
    update();
    if (onContent) ReleaseContent(point);
    if (cell >= 0 && CellAt(point) == cell) Activate(cell);
}

void DialogOverlay::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) { Press(tick > 0 ? Qt::Key_Up : Qt::Key_Down); });
}

} // namespace vk
