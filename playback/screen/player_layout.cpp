#include "playback/screen/player_layout.h"

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

// Shares of the screen's height.
constexpr double TopBarShare = 0.115;
constexpr double PanelShare = 0.30;
constexpr double BottomBarShare = 0.17;
constexpr int FillPercent = 95;      ///< of its cell that a button takes
constexpr double ButtonShare = 0.15; ///< the least width and height of a touch button

int Share(int whole, double share) {
    return static_cast<int>(std::lround(whole * share));
}

} // namespace

PlayerLayout::PlayerLayout(int width, int height, bool gps, bool radio) {
    PlaceTop(width, height);
    PlacePanel(width, height);
    const int listTop = Share(height, TopBarShare) + Share(height, PanelShare);
    bottomBar = {0, height - Share(height, BottomBarShare), width, Share(height, BottomBarShare)};
    const int margin = height / 60;
    list = QRect(margin, listTop, width - 2 * margin, bottomBar.top() - listTop);
    loading = QRect(width / 4, list.center().y() - height / 14, width / 2, height / 7);
    PlaceButtons(width, height, gps, radio);
}

void PlayerLayout::PlaceTop(int width, int height) {
    const int bar = Share(height, TopBarShare);
    const int margin = height / 40;
    const int middle = Share(width, 0.42);
    listTitle = {margin, 0, middle - margin, bar};
    clock = {middle + margin, 0, width - middle - 2 * margin, bar};
}

// The sign of the source on the left, three lines beside it.
void PlayerLayout::PlacePanel(int width, int height) {
    const int top = Share(height, TopBarShare);
    const int panel = Share(height, PanelShare);
    const int margin = height / 40;
    const int around = margin / 2;
    cover = {margin, top + around, panel - 2 * around, panel - 2 * around};
    const int inset = margin - around;
    mediaType = cover.adjusted(inset, inset, -inset, -inset);
    const int left = cover.right() + margin;
    const int wide = width - left - margin;
    const int line = panel / 9;
    title = {left, top, wide, 4 * line};
    artist = {left, top + 4 * line, wide, 3 * line};
    const int third = top + 7 * line;
    trackTime = {left, third, Share(wide, 0.5), panel - 7 * line};
    bitRate = {trackTime.right() + margin, third, Share(wide, 0.24), trackTime.height()};
    shuffle = {bitRate.right() + margin, third, left + wide - bitRate.right() - margin,
               trackTime.height()};
}

// What does not fit moves into the upper bar, first what is needed least while driving.
void PlayerLayout::PlaceButtons(int width, int height, bool gps, bool radio) {
    using enum TouchButtonId;
    std::vector<TouchButtonId> bottom = {DoQuit,  Swap,        Rewind,     RunOk,
                                         Pause,   FastForward, VolumeDown, VolumeUp,
                                         Shuffle, AddFavorite, Source,     Dim};
    const int room = width * FillPercent / 100 / std::max(1, Share(height, ButtonShare));
    std::vector<TouchButtonId> above = {PageUp, PageDown, Mute, Vis, ExtApps};
    if (gps) above.push_back(GPS);
    bottom.push_back(PopUpMenu);
    // Rows can be touched; the source is changed by this one touch alone.
    const auto third = radio ? RunOk : Source, fourth = radio ? Source : RunOk;
    for (const TouchButtonId id : {Dim, AddFavorite, third, fourth, Shuffle}) {
        if (static_cast<int>(bottom.size()) <= room) break;
        std::erase(bottom, id);
        above.push_back(id);
    }
    const int count = static_cast<int>(above.size()), rows = (count + room - 1) / room;
    const int inARow = (count + rows - 1) / rows;
    PlaceUpperBar(above, inARow, width / std::max(static_cast<int>(bottom.size()), inARow));
    PlaceRow(bottom, bottomBar, false);
}

// As many rows as a finger needs.
void PlayerLayout::PlaceUpperBar(const std::vector<TouchButtonId>& ids, int inARow, int cell) {
    const int high = bottomBar.height(), count = static_cast<int>(ids.size());
    const int rows = (count + inARow - 1) / inARow, wide = cell * inARow;
    upperBar = {bottomBar.width() - wide, bottomBar.top() - rows * high, wide, rows * high};
    for (int row = 0; row < rows; ++row) {
        const auto from = ids.begin() + row * inARow;
        const std::vector<TouchButtonId> some(from, from + std::min(inARow, count - row * inARow));
        const int taken = cell * static_cast<int>(some.size());
        PlaceRow(some, {upperBar.right() + 1 - taken, upperBar.top() + row * high, taken, high},
                 true);
    }
}

void PlayerLayout::PlaceRow(const std::vector<TouchButtonId>& ids, const QRect& bar, bool upper) {
    const int count = static_cast<int>(ids.size());
    const int side = std::min(bar.width() / count, bar.height()) * FillPercent / 100;
    for (int i = 0; i < count; ++i) {
        QRect rect(0, 0, side, side);
        rect.moveCenter({bar.left() + (2 * i + 1) * bar.width() / (2 * count), bar.center().y()});
        buttons.push_back({ids[static_cast<std::size_t>(i)], rect, upper});
    }
}

} // namespace vk
