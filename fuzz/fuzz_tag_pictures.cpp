// Feeds any bytes to what takes a picture out of an audio file, and what comes out to the decoder;
// then the bytes themselves as a picture.
#include "library/tags/embedded_picture.h"
#include "skin/controls/picture_loader.h"

#include <QCoreApplication>

#include <cstdlib>
#include <sstream>

namespace {

constexpr QSize Box(120, 100);

void Decode(const std::string& bytes) {
    const QImage image = vk::PictureFromBytes(bytes, Box, vk::PictureFit::Keep);
    if (image.width() > Box.width() || image.height() > Box.height()) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int argc = 1;
    static char name[] = "fuzz_tag_pictures";
    static char* argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv); // the formats are plug-ins
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const bool extended : {false, true}) {
        std::istringstream stream(bytes);
        vk::MediaFile file(stream);
        const std::string picture = vk::ReadEmbeddedPicture(file, extended);
        if (picture.size() > size) std::abort();
        if (!picture.empty()) Decode(picture);
    }
    Decode(bytes);
    return 0;
}
