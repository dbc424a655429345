// Where everything stands on the movie player's screen, for any size of it.
#pragma once

#include <QRect>

#include <cstdint>
#include <vector>

namespace vk {

/// The touch buttons, in the order they stand in `frmButtonBar`.
enum class MovieButton : std::uint8_t {
    DoQuit,
    Swap,
    Choices,
    Previous,
    Rewind,
    Pause,
    FastForward,
    Next,
    VolumeDown,
    VolumeUp
};

/// Pixels of the screen; what stands in a bar is counted from the bar's corner.
struct MovieLayout {
    MovieLayout(int width, int height);

    QRect infoBar; ///< `frmInfoBar`, all of it in
    QRect title, time;
    QRect buttonBar; ///< `frmButtonBar`, all of it in
    struct Place {
        MovieButton button;
        QRect rect;
    };
    std::vector<Place> buttons;
    QRect volume, message;
};

} // namespace vk
