// Decoding of pictures that come from skins, tags and discs, and so from anywhere.
#pragma once

#include <QImage>
#include <QSize>

#include <string>
#include <string_view>

namespace vk {

/// How a picture fills the box that it is drawn into.
enum class PictureFit {
    Stretch, ///< the box whole, the picture's aspect is lost
    Keep,    ///< as large as the box allows with the aspect kept
    Within   ///< the same, but never larger than the picture itself
};

/// Decodes a picture and scales it into `box` (pixels) smoothly, turned as its camera says. A null
/// image when the file is missing, no regular file, over 32 MB, broken, of a foreign format (it is
/// to be JPEG, PNG, GIF, BMP, WebP or ICO, whatever its name), or when decoding it would take too
/// much time or memory: over 16 million pixels, of a JPEG without scans that is decoded small over
/// 64 million, a JPEG of more than 64 scans. Any thread may call it.
QImage LoadPicture(const std::string& path, QSize box, PictureFit fit);
/// The same from the contents of a file.
QImage PictureFromBytes(std::string_view bytes, QSize box, PictureFit fit);

} // namespace vk
