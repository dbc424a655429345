// MPEG program streams, as .mpg and .vob files are: packets of several streams one behind the
// other. (ISO/IEC 13818-1, 2.5.3; ISO/IEC 11172-1 for those of the first generation; pictures:
// 13818-2.)
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace vk {

/// A packet of one stream. Times are ticks of 90 kHz.
struct StreamPacket {
    std::uint8_t stream = 0;
    std::optional<std::int64_t> shown, decoded; ///< of what begins in it, where it is told
    std::string_view payload;                   ///< what of it was read
    bool entry = false;                         ///< it says itself that it can be begun with

    bool IsVideo() const { return stream >= 0xE0 && stream <= 0xEF; }
    /// MPEG audio, or one of the other kinds that discs have.
    bool IsAudio() const;
    /// A picture begins in it that needs no other one.
    bool HasKeyPicture() const;
};

/// The packets of a piece that may begin and end anywhere. The bytes outlive the object.
class Packets {
  public:
    virtual ~Packets() = default;
    /// The next one, nothing at the piece's end. What is no packet is skipped.
    virtual std::optional<StreamPacket> Next() = 0;
};
std::unique_ptr<Packets> PacketsOfProgram(std::string_view bytes);

/// A packet of any kind of stream that bears such packets: `body` is what follows its length.
StreamPacket ReadPacket(std::uint8_t stream, std::string_view body);

/// The shape of its pictures (width over height, as they are to be seen) as the first packet of
/// video tells it; 0 where that does not, as in the first generation.
double ShapeOfStream(std::string_view bytes);

/// True for bytes that a program stream begins with.
bool IsProgramStream(std::string_view bytes);

} // namespace vk
