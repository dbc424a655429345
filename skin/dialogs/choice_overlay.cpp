#include "skin/dialogs/choice_overlay.h"

#include "skin/controls/looks.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr double PanelPart = 0.8; // of the host's width

} // namespace

ChoiceOverlay::ChoiceOverlay(QWidget* host, const DialogLook& look, const Clock& clock,
                             ChoiceTexts texts)
    : DialogOverlay(host, look, clock), texts_(std::move(texts)) {
    marked_ = -1;
}

void ChoiceOverlay::LayOut() {
    const int row = ButtonHeight(), gap = Gap();
    const int head = QFontMetrics(look_.Font(height())).height() + gap;
    const int spare = height() - 3 * gap - head - row - gap;
    visible_ = std::clamp(spare / row, 1, std::max(1, Count()));
    CentrePanel(PanelPart, head + visible_ * row + row + 3 * gap);
    const QRect inner = panel_.adjusted(gap, gap, -gap, -gap);
    head_ = QRect(inner.topLeft(), QSize(inner.width(), head));
    list_ = QRect(inner.left(), head_.bottom() + 1, inner.width(), visible_ * row);
    foot_ = QRect(inner.left(), list_.bottom() + 1 + gap, inner.width(), row);
    const int place = marked_ < 0 ? texts_.marked : first_ + marked_;
    ScrollTo(std::clamp(first_, place - visible_ + 1, std::max(0, place)));
    if (marked_ < 0) marked_ = std::clamp(place - first_, 0, visible_ - 1);
}

void ChoiceOverlay::ScrollTo(int first) {
    first_ = std::clamp(first, 0, std::max(0, Count() - visible_));
    cells_.clear();
    AddRows();
    AddFoot();
    update();
}

void ChoiceOverlay::AddRows() {
    const int high = list_.height() / visible_;
    for (int place = 0; place < std::min(visible_, Count()); ++place) {
        const int row = first_ + place;
        const auto choose = [this, row] {
            chosen_ = row;
            Finish(true);
        };
        cells_.push_back({QRect(list_.left(), list_.top() + place * high, list_.width(), high - 2),
                          ToQString(texts_.rows[static_cast<std::size_t>(row)]), choose});
    }
}

void ChoiceOverlay::AddFoot() {
    std::vector<DialogCell> foot = {{{}, QStringLiteral("Cancel"), [this] { Finish(false); }}};
    const auto page = [this](int pages) {
        return [this, pages] { ScrollTo(first_ + pages * visible_); };
    };
    if (Count() > visible_) {
        foot.push_back({{}, QStringLiteral("\u25B2"), page(-1), false, first_ > 0});
        foot.push_back({{}, QStringLiteral("\u25BC"), page(1), false, first_ + visible_ < Count()});
    }
    AddRow(foot_, foot);
}

// At the list's edge the rows move under the mark.
bool ChoiceOverlay::Step(int way) {
    const bool atEdge = way < 0 ? marked_ == 0 : marked_ == visible_ - 1;
    const int wanted = first_ + way;
    if (!atEdge || wanted < 0 || wanted > Count() - visible_) return false;
    ScrollTo(wanted);
    return true;
}

bool ChoiceOverlay::ContentKey(QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        return Step(-1);
    case Qt::Key_Down:
        return Step(1);
    case Qt::Key_PageUp:
        ScrollTo(first_ - visible_);
        return true;
    case Qt::Key_PageDown:
        ScrollTo(first_ + visible_);
        return true;
    default:
        return false;
    }
}

void ChoiceOverlay::DrawContent(QPainter& painter) {
    QFont font = look_.Font(height());
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(look_.text);
    painter.drawText(
        head_, Qt::AlignVCenter | Qt::AlignHCenter,
        QFontMetrics(font).elidedText(ToQString(texts_.title), Qt::ElideRight, head_.width()));
}

} // namespace vk
