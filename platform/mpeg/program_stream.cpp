#include "platform/mpeg/program_stream.h"

#include <algorithm>

namespace vk {

namespace {

using namespace std::string_view_literals;

constexpr auto CodePrefix = "\0\0\1"sv;
constexpr auto PackStart = "\0\0\1\xBA"sv;
constexpr auto PictureStart = "\0\0\1\0"sv;
constexpr auto SequenceStart = "\0\0\1\xB3"sv;
constexpr auto ExtensionStart = "\0\0\1\xB5"sv;
constexpr std::uint8_t SystemHeader = 0xBB, PrivateStream1 = 0xBD, FirstAudio = 0xC0;
constexpr std::size_t StampLength = 5, HeaderLength = 6;

std::uint8_t At(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : std::uint8_t{0};
}

// 33 bits with marks between them.
std::int64_t Stamp(std::string_view bytes, std::size_t at) {
    const auto part = [&](std::size_t i) { return static_cast<std::int64_t>(At(bytes, at + i)); };
    return (part(0) >> 1 & 7) << 30 | part(1) << 22 | part(2) >> 1 << 15 | part(3) << 7 |
           part(4) >> 1;
}

void ReadStamps(StreamPacket& packet, std::string_view body, std::size_t at, bool two) {
    packet.shown = packet.decoded = Stamp(body, at);
    if (two) packet.decoded = Stamp(body, at + StampLength);
}

// Of the second generation: flags, and the length of what follows them.
std::size_t NewHeader(StreamPacket& packet, std::string_view body) {
    constexpr std::size_t Fixed = 3;
    const int flags = At(body, 1) >> 6;
    if (flags >= 2) ReadStamps(packet, body, Fixed, flags == 3);
    return Fixed + At(body, 2);
}

// Of the first: stuffing, the size of a buffer, then times by their leading bits.
std::size_t OldHeader(StreamPacket& packet, std::string_view body) {
    std::size_t at = 0;
    while (At(body, at) == 0xFF)
        ++at;
    if (At(body, at) >> 6 == 1) at += 2;
    const int kind = At(body, at) >> 4;
    if (kind != 2 && kind != 3) return at + 1;
    ReadStamps(packet, body, at, kind == 3);
    return at + (kind == 3 ? 2 * StampLength : StampLength);
}

// What follows the sequence's header tells the generation, and the code's meaning with it.
double ShapeOfSequence(std::string_view video) {
    const auto header = video.find(SequenceStart);
    if (header == video.npos || video.find(ExtensionStart, header) == video.npos) return 0;
    const int width = At(video, header + 4) << 4 | At(video, header + 5) >> 4;
    const int height = (At(video, header + 5) & 0xF) << 8 | At(video, header + 6);
    switch (At(video, header + 7) >> 4) {
    case 1:
        return height > 0 ? static_cast<double>(width) / height : 0;
    case 2:
        return 4.0 / 3;
    case 3:
        return 16.0 / 9;
    case 4:
        return 2.21;
    default:
        return 0;
    }
}

class ProgramPackets : public Packets {
  public:
    explicit ProgramPackets(std::string_view bytes) : bytes_(bytes) {}
    std::optional<StreamPacket> Next() override;

  private:
    std::string_view bytes_;
    bool inStep_ = false; ///< what comes next begins where a packet ended
};

std::optional<StreamPacket> ProgramPackets::Next() {
    for (;;) {
        const auto next =
            bytes_.find(inStep_ && bytes_.starts_with(CodePrefix) ? CodePrefix : PackStart);
        if (next == bytes_.npos) return std::nullopt;
        bytes_.remove_prefix(next);
        const std::uint8_t stream = At(bytes_, 3);
        inStep_ = true;
        if (stream < SystemHeader) { // a pack's own header; its length differs
            bytes_.remove_prefix(CodePrefix.size());
            const auto packet = bytes_.find(CodePrefix);
            bytes_.remove_prefix(std::min(packet, bytes_.size()));
            continue;
        }
        const std::size_t length = static_cast<std::size_t>(At(bytes_, 4) << 8 | At(bytes_, 5));
        const std::string_view body = bytes_.substr(std::min(HeaderLength, bytes_.size()), length);
        bytes_.remove_prefix(std::min(HeaderLength + length, bytes_.size()));
        if (stream != PrivateStream1 && (stream < FirstAudio || stream > 0xEF)) continue;
        return ReadPacket(stream, body);
    }
}

} // namespace

StreamPacket ReadPacket(std::uint8_t stream, std::string_view body) {
    StreamPacket packet{.stream = stream, .shown = {}, .decoded = {}, .payload = {}};
    const std::size_t header =
        At(body, 0) >> 6 == 2 ? NewHeader(packet, body) : OldHeader(packet, body);
    packet.payload = body.substr(std::min(header, body.size()));
    return packet;
}

std::unique_ptr<Packets> PacketsOfProgram(std::string_view bytes) {
    return std::make_unique<ProgramPackets>(bytes);
}

double ShapeOfStream(std::string_view bytes) {
    if (!IsProgramStream(bytes)) return 0;
    ProgramPackets packets(bytes);
    while (const auto packet = packets.Next())
        if (packet->IsVideo()) return ShapeOfSequence(packet->payload);
    return 0;
}

bool IsProgramStream(std::string_view bytes) {
    return bytes.starts_with(PackStart);
}

bool StreamPacket::IsAudio() const {
    const bool mpeg = stream >= FirstAudio && stream < 0xE0;
    return mpeg || (stream == PrivateStream1 && At(payload, 0) >= 0x80);
}

bool StreamPacket::HasKeyPicture() const {
    constexpr int Intra = 1;
    if (!IsVideo() || entry) return entry;
    for (auto at = payload.find(PictureStart); at != payload.npos;
         at = payload.find(PictureStart, at + PictureStart.size()))
        if ((At(payload, at + 5) >> 3 & 7) == Intra) return true;
    return false;
}

} // namespace vk
