#include "platform/linux/vlc/film_shape.h"

#include <utility>

namespace vk {

namespace {

constexpr int LargestBlock = 64; // of H.265; decoders add some lines more
constexpr int FullHd = 1080, FullHdCoded = 1088;

// The last four orientations of libVLC lie on their side.
FilmShape Upright(const libvlc_video_track_t& track) {
    FilmShape shape{static_cast<int>(track.i_width), static_cast<int>(track.i_height)};
    const bool known = track.i_sar_num > 0 && track.i_sar_den > 0;
    if (known) shape.pixelAspect = static_cast<double>(track.i_sar_num) / track.i_sar_den;
    if (track.i_orientation < libvlc_video_orient_left_top) return shape;
    std::swap(shape.width, shape.height);
    if (known) shape.pixelAspect = 1 / shape.pixelAspect;
    return shape;
}

bool Fits(int told, int coded) {
    return told > 0 && told <= coded && coded - told < LargestBlock;
}

} // namespace

std::optional<FilmShape> ShapeOf(libvlc_media_t* media) {
    libvlc_media_track_t** tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    std::optional<FilmShape> shape;
    for (unsigned i = 0; i < count && !shape; ++i)
        if (tracks[i]->i_type == libvlc_track_video && tracks[i]->video->i_width > 0)
            shape = Upright(*tracks[i]->video);
    if (tracks) libvlc_media_tracks_release(tracks, count);
    return shape;
}

double LikelyPixelAspect(int width, int height) {
    const bool television = width >= 700 && width <= 720 && (height == 576 || height == 480);
    return television ? 4.0 / 3 * height / width : 1;
}

FilmShape Visible(int codedWidth, int codedHeight, const std::optional<FilmShape>& told) {
    if (told && Fits(told->width, codedWidth) && Fits(told->height, codedHeight)) return *told;
    const bool fullHd = codedHeight >= FullHdCoded && codedHeight < FullHd + LargestBlock;
    return {codedWidth, fullHd && codedWidth == 1920 ? FullHd : codedHeight};
}

PixelSize SizeOn(PixelSize screen, const FilmShape& shape) {
    const PixelSize own{shape.width, shape.height};
    const bool guessed = shape.pixelAspect <= 0;
    const double pixel = guessed ? LikelyPixelAspect(own.width, own.height) : shape.pixelAspect;
    if (screen.width <= 0 || screen.height <= 0 || (guessed && pixel != 1)) return own;
    const PixelSize place = FitShape(own.width * pixel / own.height, screen);
    return place.width * place.height <= own.width * own.height ? place : own;
}

} // namespace vk
