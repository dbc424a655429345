#include "video/screen/movie_layout.h"

#include "skin/touch_target.h"

#include <algorithm>

namespace vk {

MovieLayout::MovieLayout(int width, int height) {
    using enum MovieButton;
    const int margin = height / 40;
    const int side = TouchSide(height);
    infoBar = {0, 0, width, side};
    const int timeWide = std::min(width * 2 / 5, height * 9 / 16);
    time = {width - timeWide - margin, 0, timeWide, side};
    title = {margin, 0, time.left() - 2 * margin, side};
    const int bar = side + margin;
    buttonBar = {0, height - bar, width, bar};
    const MovieButton order[] = {DoQuit, Swap,        Choices, Previous,   Rewind,
                                 Pause,  FastForward, Next,    VolumeDown, VolumeUp};
    const int count = static_cast<int>(std::size(order));
    for (int i = 0; i < count; ++i) {
        QRect rect(0, 0, side, side);
        rect.moveCenter({(2 * i + 1) * width / (2 * count), bar / 2});
        buttons.push_back({order[i], rect});
    }
    volume = {margin, side + margin, std::min(width / 2, height * 2 / 3), side * 3 / 4};
    message = {width / 10, height * 2 / 5, width * 8 / 10, height / 5};
}

} // namespace vk
