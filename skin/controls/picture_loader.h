// Decoding of pictures that come from skins, tags and discs, and so from anywhere.
#pragma once

#include <QImage>
#include <QSize>

#include <string>

namespace vk {

/// How a picture fills the box that it is drawn into.
enum class PictureFit {
    Stretch, ///< the box whole, the picture's aspect is lost
    Keep     ///< as large as the box allows with the aspect kept
};

/// Decodes a picture and scales it into `box` (pixels) smoothly. A null image when the file is
/// missing, no picture, broken, or larger than 100 million pixels. What is decoded at once stays
/// below 64 MB: formats that can are read scaled, others are refused.
QImage LoadPicture(const std::string& path, QSize box, PictureFit fit);

/// The picture's own size without decoding it; an empty size when it is none.
QSize PictureSize(const std::string& path);

} // namespace vk
