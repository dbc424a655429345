#include "library/media_file.h"

#include "core/error_report.h"

#include <algorithm>

namespace vk {

namespace {

constexpr int PastEndOfFile = 62;

[[noreturn]] void FailPastEnd() {
    throw Error("Input past end of file", PastEndOfFile);
}

} // namespace

MediaFile::MediaFile(std::istream& stream) : stream_(stream) {
    stream_.seekg(0, std::ios::end);
    const auto end = stream_.tellg();
    stream_.clear();
    stream_.seekg(0);
    length_ = end > 0 ? static_cast<std::uint64_t>(end) : 0;
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

std::string MediaFile::ReadUpTo(std::uint64_t count) {
    std::string bytes(static_cast<std::size_t>(std::min(count, Left())), '\0');
    if (position_ != streamPosition_) stream_.seekg(static_cast<std::streamoff>(position_));
    stream_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream_.gcount()));
    stream_.clear();
    position_ += bytes.size();
    streamPosition_ = position_;
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
