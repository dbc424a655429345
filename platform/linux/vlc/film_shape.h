// How large a film's pictures are, and of what shape.
#pragma once

#include "platform/picture_fit.h"

#include <vlc/vlc.h>

#include <optional>

namespace vk {

/// As a film tells of its pictures, turned upright.
struct FilmShape {
    int width = 0, height = 0; ///< pixels, those that are to be seen
    double pixelAspect = 0;    ///< the width of one over its height; 0: not known yet
};

/// Of the film's first video track. Nothing before the film has told; containers that carry no
/// shape of their own tell it with the first picture.
std::optional<FilmShape> ShapeOf(libvlc_media_t* media);

/// The shape of a pixel where nobody tells: pictures of television stand for 4:3, however many
/// pixels they have, all others have square ones.
double LikelyPixelAspect(int width, int height);

/// What is to be seen of pictures that are coded in so many pixels: codecs fill up whole blocks.
FilmShape Visible(int codedWidth, int codedHeight, const std::optional<FilmShape>& told);

/// What its pictures are best converted to: their place on a screen, since nobody has to scale them
/// then, or what they are where that is less or the place is not known.
PixelSize SizeOn(PixelSize screen, const FilmShape& shape);

} // namespace vk
