// The angles of a video disc, which libVLC leaves to the disc's menus.
#pragma once

namespace vk {

/// Asks the library that reads the disc for libVLC: its openings and closings come by here, where
/// they are told apart by nothing, so that the disc that was opened last is meant. Where they do
/// not, as with another library, there is one angle. May wait for the medium.
class DiscAngles {
  public:
    /// Has libVLC's plug-ins open discs by here; before the first is.
    static void Begin();
    /// The angle of the title that plays, from 1; 1 in menus and without a disc.
    static int Current();
    static void Change(int angle);
};

} // namespace vk
