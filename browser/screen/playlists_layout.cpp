#include "browser/screen/playlists_layout.h"

#include <algorithm>

namespace vk {

PlaylistsLayout::PlaylistsLayout(int width, int height)
    : button(height * 15 / 100 + 1), gap_(std::max(4, height / 60)) {
    const int top = height / 8; // two lines of a title
    const int bottom = height * 17 / 100;
    const int margin = width * 2 / 100;
    topBar = {0, 0, width, top};
    bottomBar = {0, height - bottom, width, bottom};
    home = {width - margin - button, gap_ / 2, button, top - gap_};
    const int clockWidth = width * 36 / 100;
    clock = {home.left() - gap_ - clockWidth, 0, clockWidth, top};
    title = {margin, 0, clock.left() - gap_ - margin, top};
    list = {margin, top + gap_ / 2, width - 2 * margin, height - top - bottom - gap_};
    frame = std::max(3, gap_ * 2 / 3);
    const int half = (list.width() - gap_) / 2;
    const QRect left(list.left(), list.top(), half, list.height());
    leftList = left.adjusted(frame, 0, -frame, 0);
    rightList = leftList.translated(half + gap_, 0);
    keyboard = {0, top, width, height - top};
    loading =
        list.adjusted(list.width() / 10, list.height() / 3, -list.width() / 10, -list.height() / 3);
}

std::vector<QRect> PlaylistsLayout::BottomButtons(int count) const {
    std::vector<QRect> places;
    const int y = bottomBar.top() + (bottomBar.height() - button) / 2;
    for (int i = 0; i < count; ++i) {
        const int middle = bottomBar.width() * (2 * i + 1) / (2 * count);
        places.emplace_back(middle - button / 2, y, button, button);
    }
    return places;
}

QRect PlaylistsLayout::ToolFrame(int count) const {
    const QRect last = ToolButton(count - 1);
    const int width = last.right() + 1 + gap_;
    const int height = button + 2 * gap_;
    return {list.right() + 1 - width, bottomBar.top() - height, width, height};
}

QRect PlaylistsLayout::ToolButton(int index) const {
    return {gap_ + index * (button + gap_), gap_, button, button};
}

} // namespace vk
