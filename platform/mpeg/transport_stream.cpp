#include "platform/mpeg/transport_stream.h"

#include <array>
#include <cstddef>

namespace vk {

namespace {

using namespace std::string_view_literals;

constexpr char Sync = 0x47;
constexpr std::size_t Size = 188, HeaderSize = 4;
constexpr std::size_t Pitches[] = {Size, Size + 4}; // cameras put a time before each
constexpr std::size_t InStep = 5;                   // packets that are looked at
constexpr auto CodePrefix = "\0\0\1"sv;
constexpr std::size_t CarriedHeader = 6; // up to where its length is told

std::uint8_t At(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : std::uint8_t{0};
}

struct Grid {
    std::size_t first = 0, pitch = 0; ///< pitch 0: there are no packets
};

bool Fits(std::string_view bytes, const Grid& grid) {
    const std::size_t last = grid.first + (InStep - 1) * grid.pitch;
    if (last >= bytes.size()) return false;
    for (std::size_t at = grid.first; at <= last; at += grid.pitch)
        if (bytes[at] != Sync) return false;
    return true;
}

Grid FindGrid(std::string_view bytes, std::size_t mostSkipped) {
    for (const std::size_t pitch : Pitches)
        for (std::size_t first = 0; first <= mostSkipped; ++first)
            if (Fits(bytes, {first, pitch})) return {first, pitch};
    return {};
}

// What a decoder can be begun with stands behind its parameters: a sequence's header of MPEG-2,
// the set of parameters of H.264 or the first one of H.265.
bool HoldsParameters(std::string_view video) {
    for (auto at = video.find(CodePrefix); at != video.npos; at = video.find(CodePrefix, at + 3)) {
        const std::uint8_t code = At(video, at + CodePrefix.size());
        constexpr std::uint8_t Sequence = 0xB3, VideoSet = 0x40;
        constexpr std::array<std::uint8_t, 3> SequenceSets{0x27, 0x47, 0x67};
        if (code == Sequence || code == VideoSet) return true;
        for (const std::uint8_t set : SequenceSets)
            if (code == set) return true;
    }
    return false;
}

class TransportPackets : public Packets {
  public:
    explicit TransportPackets(std::string_view bytes)
        : bytes_(bytes), grid_(FindGrid(bytes, Pitches[1])), at_(grid_.first) {}

    std::optional<StreamPacket> Next() override {
        while (grid_.pitch > 0 && at_ + Size <= bytes_.size()) {
            const std::string_view packet = bytes_.substr(at_, Size);
            if (packet[0] != Sync) return std::nullopt;
            at_ += grid_.pitch;
            if (auto carried = Carried(packet)) return carried;
        }
        return std::nullopt;
    }

  private:
    // Nothing unless one of a stream of video or sound begins in it.
    static std::optional<StreamPacket> Carried(std::string_view packet) {
        constexpr int Begins = 0x40, HasField = 0x20, HasPayload = 0x10, Entry = 0x40;
        if (!(At(packet, 1) & Begins) || !(At(packet, 3) & HasPayload)) return std::nullopt;
        const bool field = (At(packet, 3) & HasField) != 0;
        const std::size_t length = field ? At(packet, HeaderSize) + std::size_t{1} : 0;
        const bool entry = length > 1 && (At(packet, HeaderSize + 1) & Entry) != 0;
        if (HeaderSize + length + CarriedHeader > packet.size()) return std::nullopt;
        const std::string_view payload = packet.substr(HeaderSize + length);
        constexpr std::uint8_t FirstStream = 0xBD, LastStream = 0xEF;
        const std::uint8_t stream = At(payload, CodePrefix.size());
        const bool wanted = stream >= FirstStream && stream <= LastStream;
        if (!payload.starts_with(CodePrefix) || !wanted) return std::nullopt;
        StreamPacket carried = ReadPacket(stream, payload.substr(CarriedHeader));
        carried.entry = carried.IsVideo() && (entry || HoldsParameters(carried.payload));
        return carried;
    }

    std::string_view bytes_;
    Grid grid_;
    std::size_t at_;
};

} // namespace

bool IsTransportStream(std::string_view bytes) {
    return FindGrid(bytes, Pitches[1] - Size).pitch > 0;
}

std::unique_ptr<Packets> PacketsOfTransport(std::string_view bytes) {
    return std::make_unique<TransportPackets>(bytes);
}

} // namespace vk
