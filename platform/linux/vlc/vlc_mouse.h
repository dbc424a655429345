// Touches on a film's picture, for the menus of discs.
#pragma once

#include <vlc/vlc.h>

namespace vk {

/// A click there, of the picture's width and height, 0 to 1. libVLC takes none for pictures that it
/// draws into memory; its core does, in the variables "mouse-moved" and "mouse-clicked" of the
/// video output. Nothing happens with another core than that of the third version.
void ClickPicture(libvlc_media_player_t* player, double x, double y);

} // namespace vk
