#include "settings/looks_preview.h"

#include "skin/list_model.h"

#include <utility>

namespace vk {

namespace {

// Pixels. The screens are a third of the smallest panel, so that their rows can be told apart.
constexpr int Wide = 216, High = 160, Gap = 8;
constexpr int TextHeight = 10, Edge = 4;
constexpr int BarShare = 20, ButtonShare = 9; // of the menu's height and width
constexpr int TileColumns = 3, TileRows = 2;

std::uint32_t Rgb(SkinColour colour) {
    return static_cast<std::uint32_t>(colour.Red() << 16 | colour.Green() << 8 | colour.Blue());
}

} // namespace

void LooksPreview::Fill(const Box& box, SkinColour colour) {
    const double left = box.x, top = box.y, right = left + box.width, bottom = top + box.height;
    Polygon(picture_, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}, Rgb(colour));
}

const PagePicture& LooksPreview::Picture() {
    std::string now = settings_.ListSpacing + " " + std::to_string(skin_.Generation());
    for (const bool on : {settings_.ShowClock, settings_.CleanMenu, settings_.ShowSelBar})
        now += on ? " on" : " off";
    if (std::exchange(drawn_, now) == now) return picture_;
    picture_ = PagePicture(2 * Wide + Gap, High);
    DrawList({0, 0, Wide, High});
    DrawMenu({Wide + Gap, 0, Wide, High});
    return picture_;
}

void LooksPreview::DrawList(const Box& box) {
    const SkinData& skin = skin_.data();
    Fill(box, skin.OSKBGClr);
    ListModel list;
    list.SetGeometry(TextHeight, settings_.ListSpacing, box.height - 2 * Edge);
    for (int row = 0; row < list.iMaxVis; ++row) {
        const int top = box.y + Edge + row * list.RowHeight;
        const bool chosen = row == 1;
        if (chosen && settings_.ShowSelBar)
            Fill({box.x + Edge, top, box.width - 2 * Edge, list.RowHeight},
                 skin.ListSelectedBackgroundClr);
        const int length = box.width * (row % 3 + 3) / 7; // lines of a text differ
        Fill(
            {box.x + 3 * Edge, top + (list.RowHeight - TextHeight / 2) / 2, length, TextHeight / 2},
            skin.ListForegroundClr);
    }
}

void LooksPreview::DrawMenu(const Box& box) {
    const SkinData& skin = skin_.data();
    Fill(box, skin.OSKBGClr);
    const int bar = box.height / BarShare + 2, bottom = box.y + box.height - bar;
    const int wide = box.width / TileColumns, high = (bottom - box.y - Edge) / TileRows;
    for (int tile = 0; tile < TileColumns * TileRows; ++tile)
        Fill({box.x + tile % TileColumns * wide + Edge, box.y + tile / TileColumns * high + Edge,
              wide - 2 * Edge, high - Edge},
             tile == 0 ? skin.ListSelectedBackgroundClr : skin.OutlineBoxClr);
    if (settings_.ShowClock) {
        Fill({box.x, bottom, box.width, bar}, skin.ClockBackgroundClr);
        Fill({box.x + box.width / 3, bottom + bar / 3, box.width / 3, bar / 3},
             skin.ClockForegroundClr);
    }
    if (settings_.CleanMenu) return;
    const int button = box.width / ButtonShare;
    for (const int x : {0, box.width - 2 * button, box.width - button})
        Fill({box.x + x + 1, bottom + 1, button - 2, bar - 2}, skin.ClockForegroundClr);
}

} // namespace vk
