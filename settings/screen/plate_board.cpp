#include "settings/screen/plate_board.h"

#include "skin/controls/nearest_box.h"

#include <utility>

namespace vk {

namespace {

constexpr double SmallestText = 0.4; // of the font
constexpr int GapShare = 160;        // a gap is the board's width divided by this

} // namespace

void PlateBoard::Add(Plate plate) {
    auto label = std::make_unique<ShadedLabel>(this);
    label->SetWrap(true);
    label->SetShrink(SmallestText);
    if (plate.name) label->setObjectName(QLatin1String(plate.name));
    const int index = static_cast<int>(plates_.size());
    if (plate.use) label->onClick = [this, index] { Touch(index); };
    plates_.push_back(std::move(plate));
    labels_.push_back(std::move(label));
}

bool PlateBoard::Usable(std::size_t plate) const {
    const int page = plates_[plate].page;
    return plates_[plate].use && (page < 0 || page == page_);
}

// The gaps are taken from the cells, so that equal cells make equal plates.
QRect PlateBoard::BoxOf(const QRect& cell) const {
    const int gap = width() / GapShare + 1;
    const auto x = [&](int column) { return column * (width() + gap) / size_.width(); };
    const auto y = [&](int row) { return row * (height() + gap) / size_.height(); };
    return {QPoint(x(cell.left()), y(cell.top())),
            QPoint(x(cell.right() + 1) - gap - 1, y(cell.bottom() + 1) - gap - 1)};
}

void PlateBoard::Refresh(const SkinData& skin) {
    const RowLook look(skin);
    for (std::size_t i = 0; i < plates_.size(); ++i) {
        const Plate& plate = plates_[i];
        ShadedLabel& label = *labels_[i];
        label.setGeometry(BoxOf(plate.cell));
        label.setVisible(plate.page < 0 || plate.page == page_);
        label.SetText(plate.text());
        if (plate.use)
            look.Dress(label, static_cast<int>(i) == marked_, true, plate.lit && plate.lit());
        else
            look.DressText(label);
    }
}

void PlateBoard::Show(int page) {
    page_ = page;
    if (!Usable(static_cast<std::size_t>(marked_))) marked_ = 0;
    for (std::size_t i = 0; i < plates_.size() && !Usable(static_cast<std::size_t>(marked_)); ++i)
        marked_ = static_cast<int>(i);
}

void PlateBoard::Move(int dx, int dy) {
    std::vector<QRect> boxes;
    for (std::size_t i = 0; i < plates_.size(); ++i)
        boxes.push_back(Usable(i) ? BoxOf(plates_[i].cell) : QRect());
    const int next = NearestBox(boxes[static_cast<std::size_t>(marked_)], boxes, dx, dy);
    if (next >= 0) marked_ = next;
    if (onChanged) onChanged();
}

void PlateBoard::Use() {
    Touch(marked_);
}

void PlateBoard::Touch(int plate) {
    marked_ = plate;
    const auto use = plates_[static_cast<std::size_t>(plate)].use;
    if (use) use();
    if (onChanged) onChanged();
}

} // namespace vk
