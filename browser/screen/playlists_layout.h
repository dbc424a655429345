// Where the parts of the browser's screen stand: fractions of the screen, in pixels.
#pragma once

#include <QRect>

#include <vector>

namespace vk {

/// All of it follows from the size of the screen.
struct PlaylistsLayout {
    PlaylistsLayout(int width, int height);

    QRect topBar, bottomBar;
    QRect title, clock, home; ///< in the top bar
    QRect list;
    QRect leftList,
        rightList;  ///< two lists side by side in its place, room for a frame around each
    int frame = 0;  ///< width of that frame
    QRect loading;  ///< the largest place of the label over the list
    QRect keyboard; ///< all below the top bar
    int button = 0; ///< side of the square touch buttons

    /// `count` buttons spread evenly over the bottom bar.
    std::vector<QRect> BottomButtons(int count) const;
    /// The frame for `count` buttons that slides up from the bottom bar, and its buttons in it.
    QRect ToolFrame(int count) const;
    QRect ToolButton(int index) const;

  private:
    int gap_ = 0; ///< between the parts
};

} // namespace vk
