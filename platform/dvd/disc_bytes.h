// Numbers out of a disc's bytes; what lies behind their end is 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vk {

/// Bytes of a disc's sector.
inline constexpr std::size_t DiscSector = 2048;

inline std::uint32_t ByteAt(const std::string& bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0u;
}
inline std::uint32_t BigAt(const std::string& bytes, std::size_t at, std::size_t count = 4) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < count; ++i)
        number = number << 8 | ByteAt(bytes, at + i);
    return number;
}
inline std::uint32_t LittleAt(const std::string& bytes, std::size_t at) {
    return ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8 | ByteAt(bytes, at + 2) << 16 |
           ByteAt(bytes, at + 3) << 24;
}

} // namespace vk
