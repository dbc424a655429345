// A media file open for reading, by pieces that are checked against its length: a size found in the
// file can claim anything.
#pragma once

#include "platform/random_file.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <string>
#include <string_view>

namespace vk {

/// Reads from a file or a seekable stream that outlives it. Positions count bytes from 0.
class MediaFile {
  public:
    explicit MediaFile(const RandomFile& file);
    explicit MediaFile(std::istream& stream);

    /// Bytes in the file when it was opened.
    std::uint64_t Length() const { return length_; }
    std::uint64_t Position() const { return position_; }
    void Seek(std::uint64_t position) { position_ = position; }
    /// Passes over bytes; throws when the file ends before.
    void Skip(std::uint64_t count);
    /// The next bytes; throws, without taking memory for them, when the file has fewer.
    std::string Read(std::uint64_t count);
    /// The next bytes, or those that are left.
    std::string ReadUpTo(std::uint64_t count);

  private:
    /// Reads at a position into memory; returns how many bytes there were.
    using ReadAt = std::function<std::size_t(std::uint64_t, char*, std::size_t)>;

    std::uint64_t Left() const { return position_ < length_ ? length_ - position_ : 0; }
    std::string_view Buffered() const;

    ReadAt readAt_;
    std::uint64_t length_ = 0;
    std::uint64_t position_ = 0;
    std::string buffer_; ///< a stretch of the file: tags are read in small pieces
    std::uint64_t bufferStart_ = 0;
};

/// The number in a field of up to 8 bytes, least significant byte first.
std::uint64_t LittleEndian(std::string_view bytes);
/// The number in a field, most significant byte first, each byte weighted with `bitsPerByte` bits
/// (8, or 7 in the sizes of ID3v2) and combined by OR.
std::uint64_t BigEndian(std::string_view bytes, int bitsPerByte = 8);

} // namespace vk
