#include "skin/list_model.h"

#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace vk {

namespace {

constexpr double DefaultSpacing = 3;

std::string WithoutNul(const std::string& text) {
    std::string result = text;
    std::erase(result, '\0');
    return result;
}

} // namespace

int RoundEven(double value) {
    return static_cast<int>(std::nearbyint(value));
}

void ListModel::SetGeometry(int textHeight, const std::string& listSpacing, int height) {
    const double spacing = ParseDecimal(listSpacing).value_or(DefaultSpacing);
    TextHeight = std::max(1, textHeight);
    RowHeight = std::max(
        1, RoundEven(TextHeight + TextHeight * (1 / (spacing > 0 ? spacing : DefaultSpacing))));
    height_ = std::max(height, RowHeight);
    UsableHeight = height_ - height_ % RowHeight;
    iMaxVis = UsableHeight / RowHeight;
}

void ListModel::AddItem(const std::string& first, const std::string& second,
                        const std::string& descriptor, const std::string& picture,
                        std::int32_t icon) {
    if (!CanDraw()) return;
    rows_.push_back({WithoutNul(first), WithoutNul(second), descriptor, picture, icon});
}

void ListModel::RemoveItem(int index) {
    if (!Valid(index)) return;
    ++changes_;
    rows_.erase(rows_.begin() + index);
}

void ListModel::ClearArraysXM() {
    rows_.clear();
}

void ListModel::ClearAllArrays() {
    rows_.clear();
    loaded_ = false;
    iSelected = 0;
}

void ListModel::LoadList() {
    ++changes_;
    DupeText.clear();
    if (HideDupes) FindDuplicateText();
    if (!CanDraw()) return;
    UsableHeight = height_ - height_ % RowHeight;
    iMaxVis = UsableHeight / RowHeight;
    HalfRows = RoundEven(iMaxVis / 2.0) - 1;
    ThirdRows = RoundEven(iMaxVis / 3.0);
    iFirstVisible = FirstForSelection();
    loaded_ = true;
}

// The last of these cases is reached only near the end of the list; its arithmetic is as it always
// was.
int ListModel::FirstForSelection() const {
    const int count = ItemCount();
    const int rows = iMaxVis;
    const int sel = iSelected;
    const int middle = RoundEven(sel - rows / 2.0);
    if (count < rows) return 0;
    if (sel < count - rows && rows < sel) return middle;
    if (count - rows < sel && rows < count) return middle;
    if (count - sel >= rows) return sel;
    return RoundEven(rows / 2.0 + (count - sel));
}

// The arithmetic of the moves may put the page where the cursor is not, or no row at all.
int ListModel::TopRow() const {
    if (ItemCount() <= iMaxVis) return 0;
    const int lowest = std::max(0, iSelected - iMaxVis + 1);
    const int highest = std::min(iSelected, ItemCount() - 1);
    return Valid(iSelected) ? std::clamp(iFirstVisible, lowest, std::max(lowest, highest))
                            : std::clamp(iFirstVisible, 0, ItemCount() - 1);
}

std::string ListModel::Compared(int index) const {
    const std::string& text = Row(index).first;
    const auto dash = numberedList ? text.find(" - ") : std::string::npos;
    return dash == std::string::npos ? text : text.substr(std::min(dash + 3, text.size()));
}

// Rows of "<...>" have no artist and do not count, wherever they stand. A row of one text would be
// left without any.
void ListModel::FindDuplicateText() {
    if (ItemCount() < 2) return;
    std::optional<std::string> common;
    for (int i = 0; i < ItemCount(); ++i) {
        if (Row(i).first == "<...>") continue;
        if (Row(i).second.empty()) return;
        const std::string text = Compared(i);
        if (common && *common != text) return;
        common = text;
    }
    DupeText = common.value_or("");
}

std::string ListModel::ShownFirst(int index) const {
    return DupeText.empty() ? Row(index).first : ReplaceAll(Row(index).first, DupeText, "");
}

const ListRow& ListModel::Row(int index) const {
    static const ListRow none;
    return Valid(index) ? rows_[static_cast<std::size_t>(index)] : none;
}

std::string ListModel::GetSelectedFileName(int index, bool useIndex) const {
    if (!loaded_) return {};
    return Row(useIndex || index != 0 ? index : iSelected).descriptor;
}

std::string ListModel::GetSelectedItemArtist() const {
    return loaded_ ? Row(iSelected).first : std::string();
}

std::string ListModel::GetSelectedItemTitle() const {
    return loaded_ ? Row(iSelected).second : std::string();
}

void ListModel::MoveUp() {
    SelectItem(iSelected - 1 < 0 ? ItemCount() - 1 : iSelected - 1);
}

void ListModel::MoveDown() {
    SelectItem(iSelected + 1 >= ItemCount() ? 0 : iSelected + 1);
}

void ListModel::PageUp() {
    iPrevSelected = iSelected;
    const bool top = iFirstVisible - iMaxVis < 0;
    iSelected = top ? 0 : std::max(0, iSelected - iMaxVis);
    iFirstVisible = top ? 0 : iFirstVisible - iMaxVis;
}

void ListModel::PageDown() {
    const int next = iFirstVisible + iMaxVis;
    const bool nearEnd = iSelected >= ItemCount() - iMaxVis || next > ItemCount();
    if (nearEnd && (IsBottom() || next >= ItemCount())) return;
    iPrevSelected = iSelected;
    iSelected = nearEnd ? next : iSelected + iMaxVis;
    iFirstVisible = next;
}

bool ListModel::IsBottom() const {
    for (int k = 0; k <= iMaxVis; ++k)
        if (iFirstVisible + k >= ItemCount()) return true;
    return false;
}

void ListModel::SelectItem(int index, bool jump, bool keep) {
    if (index < 0 || index > ItemCount() || ItemCount() == 0) return;
    const bool inPage = index >= iFirstVisible && index <= iFirstVisible + iMaxVis - 1;
    if (jump)
        iFirstVisible = index >= iMaxVis ? index - iMaxVis : 0;
    else if (index == 0)
        iFirstVisible = 0;
    else if (index == ItemCount())
        iFirstVisible = ItemCount() - iMaxVis;
    else if (inPage && !keep)
        SlidePage(index);
    else
        iFirstVisible = FirstForOutside(index);
    iPrevSelected = iSelected;
    iSelected = std::min(index, ItemCount() - 1);
}

void ListModel::SelectVisible(int index) {
    if (!Valid(index)) return;
    iFirstVisible = TopRow(); // the page stands still under the finger
    iPrevSelected = iSelected;
    iSelected = index;
}

// The cursor walks to a third of the page from its edge, then the page slides under it.
void ListModel::SlidePage(int index) {
    const int last = iFirstVisible + iMaxVis - 1;
    const bool up = index < iSelected;
    const bool down = index > iSelected;
    if (index < iFirstVisible + ThirdRows && up && iFirstVisible > 0) --iFirstVisible;
    if (index > last - ThirdRows && down && index + ThirdRows <= ItemCount()) ++iFirstVisible;
}

int ListModel::FirstForOutside(int index) const {
    const int count = ItemCount();
    if (index == count - 1) return std::max(0, count - iMaxVis + 1);
    if (index < iMaxVis) return 0;
    if (index <= count - iMaxVis) return index - iMaxVis;
    return count - iMaxVis - (count - index + 1);
}

int ListModel::MatchItem(const std::string& descriptor) const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const ListRow& row) {
        return row.descriptor == descriptor;
    });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::string* ListModel::Field(int index, std::string ListRow::*field) {
    return Valid(index) ? &(rows_[static_cast<std::size_t>(index)].*field) : nullptr;
}

void ListModel::RplTitleListItem(int index, const std::string& text) {
    if (std::string* field = Field(index, &ListRow::second)) *field = WithoutNul(text);
}

void ListModel::RplartistListItem(int index, const std::string& text) {
    if (std::string* field = Field(index, &ListRow::first)) *field = WithoutNul(text);
}

void ListModel::RplFilenameListItem(int index, const std::string& text) {
    if (std::string* field = Field(index, &ListRow::descriptor)) *field = text;
}

} // namespace vk
