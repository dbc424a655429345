#include "player/engine/certain_length.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>

namespace vk {

namespace {

constexpr std::size_t ID3HeaderBytes = 10;
constexpr std::size_t FrameBytes = 1500; ///< the longest first frame
constexpr std::uint8_t Sync = 0xFF, SyncMask = 0xE0;

/// Bytes of an ID3v2 tag, header included; 0 where there is none
/// (https://id3.org/id3v2.4.0-structure).
std::streamoff TagBytes(std::string_view head) {
    if (head.size() < ID3HeaderBytes || !head.starts_with("ID3")) return 0;
    std::streamoff size = 0;
    for (std::size_t at = 6; at < ID3HeaderBytes; ++at)
        size = size << 7 | (static_cast<unsigned char>(head[at]) & 0x7F);
    return size + static_cast<std::streamoff>(ID3HeaderBytes);
}

bool IsRawStream(std::string_view bytes) {
    return bytes.size() >= 2 && static_cast<std::uint8_t>(bytes[0]) == Sync &&
           (static_cast<std::uint8_t>(bytes[1]) & SyncMask) == SyncMask;
}

} // namespace

bool LengthIsCertain(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, FrameBytes> buffer{};
    const auto read = [&](std::streamoff from) {
        file.seekg(from);
        file.read(buffer.data(), buffer.size());
        const std::string_view bytes(buffer.data(), static_cast<std::size_t>(file.gcount()));
        file.clear();
        return bytes;
    };
    if (!file) return false;
    const std::string_view bytes = read(TagBytes(read(0)));
    constexpr std::string_view Containers[] = {"fLaC",
                                               "RIFF",
                                               "OggS",
                                               "FORM",
                                               "MAC ",
                                               "wvpk",
                                               "MPCK",
                                               "MP+",
                                               "\x1A\x45\xDF\xA3",
                                               "\x30\x26\xB2\x75"};
    const auto begins = [&](std::string_view mark) { return bytes.starts_with(mark); };
    if (std::ranges::any_of(Containers, begins) || bytes.substr(0, 8).ends_with("ftyp"))
        return true;
    if (!IsRawStream(bytes)) return false;
    return std::ranges::any_of(
        std::array<std::string_view, 3>{"Xing", "Info", "VBRI"},
        [&](std::string_view mark) { return bytes.find(mark) != std::string_view::npos; });
}

} // namespace vk
