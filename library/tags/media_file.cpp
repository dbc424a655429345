#include "library/tags/media_file.h"

#include "core/error_report.h"

#include <algorithm>

namespace vk {

namespace {

constexpr int PastEndOfFile = 62;
// Most tags without their picture fit; a page is what the system reads anyway.
constexpr std::size_t BufferLength = 4096;

[[noreturn]] void FailPastEnd() {
    throw Error("Input past end of file", PastEndOfFile);
}

} // namespace

MediaFile::MediaFile(const RandomFile& file)
    : readAt_([&file](std::uint64_t at, char* to, std::size_t count) {
          return file.ReadAt(at, to, count);
      }),
      length_(file.Length()) {}

MediaFile::MediaFile(std::istream& stream) {
    stream.seekg(0, std::ios::end);
    const auto end = stream.tellg();
    length_ = end > 0 ? static_cast<std::uint64_t>(end) : 0;
    readAt_ = [&stream](std::uint64_t at, char* to, std::size_t count) {
        stream.clear();
        stream.seekg(static_cast<std::streamoff>(at));
        stream.read(to, static_cast<std::streamsize>(count));
        return static_cast<std::size_t>(stream.gcount());
    };
}

void MediaFile::Skip(std::uint64_t count) {
    if (count > Left()) FailPastEnd();
    position_ += count;
}

std::string MediaFile::Read(std::uint64_t count) {
    if (count > Left()) FailPastEnd();
    std::string bytes = ReadUpTo(count);
    if (bytes.size() < count) FailPastEnd(); // the file has shrunk since it was opened
    return bytes;
}

/// What the buffer holds from the present position on.
std::string_view MediaFile::Buffered() const {
    const bool inside = position_ >= bufferStart_ && position_ < bufferStart_ + buffer_.size();
    return inside ? std::string_view(buffer_).substr(position_ - bufferStart_) : std::string_view();
}

std::string MediaFile::ReadUpTo(std::uint64_t count) {
    const auto wanted = static_cast<std::size_t>(std::min(count, Left()));
    std::string bytes(Buffered().substr(0, wanted));
    if (bytes.size() < wanted && wanted >= BufferLength) {
        const std::size_t have = bytes.size();
        bytes.resize(wanted);
        bytes.resize(have + readAt_(position_ + have, bytes.data() + have, wanted - have));
    } else if (bytes.size() < wanted) {
        bufferStart_ = position_;
        buffer_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(BufferLength, Left())));
        buffer_.resize(readAt_(position_, buffer_.data(), buffer_.size()));
        bytes = buffer_.substr(0, wanted);
    }
    position_ += bytes.size();
    return bytes;
}

std::uint64_t LittleEndian(std::string_view bytes) {
    return BigEndian(std::string(bytes.rbegin(), bytes.rend()));
}

std::uint64_t BigEndian(std::string_view bytes, int bitsPerByte) {
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = (value << bitsPerByte) | static_cast<unsigned char>(byte);
    return value;
}

} // namespace vk
