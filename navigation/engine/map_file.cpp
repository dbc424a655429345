#include "navigation/engine/map_file.h"

#include "platform/files.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string_view>

namespace vk {

namespace {

// APPNOTE.TXT of the zip format: 4.3.7 (a file's header) and 4.3.16 (the end, with a comment of up
// to 64 KB behind it).
constexpr std::string_view Header("PK\x03\x04", 4), End("PK\x05\x06", 4);
constexpr std::uint64_t EndLength = 22, LongestTail = EndLength + 65535;

} // namespace

bool IsMapFile(const std::string& path) {
    const std::uint64_t length = FileLength(path);
    if (length < Header.size() + EndLength) return false;
    std::ifstream file(path, std::ios::binary);
    std::string piece(Header.size(), '\0');
    file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    if (!file || piece != Header) return false;
    piece.resize(std::min(length, LongestTail));
    file.seekg(-static_cast<std::streamoff>(piece.size()), std::ios::end);
    file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    return file && piece.rfind(End) != std::string::npos;
}

} // namespace vk
