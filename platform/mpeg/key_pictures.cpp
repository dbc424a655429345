#include "platform/mpeg/key_pictures.h"

#include "platform/mpeg/film_bytes.h"
#include "platform/mpeg/mp4_keys.h"
#include "platform/mpeg/program_stream.h"
#include "platform/mpeg/stream_keys.h"
#include "platform/mpeg/transport_stream.h"

namespace vk {

std::unique_ptr<KeyPictures> KeyPicturesOf(const std::string& file) {
    constexpr std::int64_t KindBytes = 4096;
    const std::string first = FilmBytes(file).Read(0, KindBytes);
    if (IsProgramStream(first)) return std::make_unique<StreamKeys>(file, PacketsOfProgram);
    if (IsTransportStream(first)) return std::make_unique<StreamKeys>(file, PacketsOfTransport);
    return Mp4Keys::Of(file);
}

double ShapeOfFilm(const std::string& file) {
    constexpr std::int64_t BeginBytes = 1 << 15; // with the first packet of video among them
    return ShapeOfStream(FilmBytes(file).Read(0, BeginBytes));
}

} // namespace vk
