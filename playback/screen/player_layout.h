// Where everything stands on the audio player's screen, for any size of it.
#pragma once

#include <QRect>

#include <cstdint>
#include <vector>

namespace vk {

/// The touch buttons in the order they stand in the bottom bar.
enum class TouchButtonId : std::uint8_t {
    DoQuit,      ///< `TSdoQuitBtn`
    Swap,        ///< `TSswmpBtn`
    Rewind,      ///< `TSRewindBtn`
    RunOk,       ///< `TSRunOkBtn`
    Pause,       ///< `TSPauseBtn`
    FastForward, ///< `TSFastForwardBtn`
    VolumeDown,  ///< `TSVolDownBtn`
    VolumeUp,    ///< `TSVolUpBtn`
    Shuffle,     ///< `TSshuffleBtn`
    AddFavorite, ///< `TSAddFavBtn`
    Source,      ///< `TSRadio2MP3Btn`
    GPS,         ///< `TSGPSbtn`, where there is a map
    ExtApps,     ///< `TSextAppBtn`
    PageUp,
    PageDown,
    Mute,
    Vis,      ///< `TSVisBtn`
    Dim,      ///< `TSDimBtn`
    PopUpMenu ///< `TSPopUpMenuBtn`, which opens `frmUpperBar`
};

/// A button and its place: in the bottom bar, or in the bar above it that opens on request.
struct ButtonPlace {
    TouchButtonId id;
    QRect rect;
    bool upper = false;
};

/// All rectangles are in pixels of the screen and lie within it; none but the upper bar and the
/// cover lies over another.
struct PlayerLayout {
    /// `gps` and `radio`: there is a GPS screen, and a tuner to change to.
    PlayerLayout(int width, int height, bool gps = false, bool radio = false);

    QRect listTitle; ///< also the place of the volume text
    QRect clock;
    QRect mediaType; ///< gives way to the cover, where there is one
    QRect cover;     ///< `imgCoverArt`, the whole height of the panel
    QRect title;
    QRect artist;
    QRect trackTime;
    QRect bitRate;
    QRect shuffle;
    QRect list;
    QRect loading; ///< in the middle of the list
    QRect bottomBar;
    QRect upperBar; ///< for what is needed least while driving, and what does not fit below
    std::vector<ButtonPlace> buttons;

  private:
    void PlaceTop(int width, int height);
    void PlacePanel(int width, int height);
    void PlaceButtons(int width, int height, bool gps, bool radio);
    void PlaceUpperBar(const std::vector<TouchButtonId>& ids, int inARow, int cell);
    void PlaceRow(const std::vector<TouchButtonId>& ids, const QRect& bar, bool upper);
};

} // namespace vk
