#include "platform/dvd/disc_files.h"

#include "platform/dvd/disc_bytes.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

namespace vk {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t Most = 1u << 20;
constexpr const char* VideoFolder = "VIDEO_TS";

std::string Capitals(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

std::string ReadSome(std::istream& file, std::size_t length) {
    std::string bytes(std::min(length, Most), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, file.gcount())));
    return bytes;
}

// File systems keep the names in any case; "" when there is none.
fs::path EntryOf(const fs::path& folder, const std::string& name) {
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed))
        if (Capitals(entry->path().filename().string()) == name) return entry->path();
    return {};
}

std::optional<std::string> FromFolder(const fs::path& disc, const std::string& name) {
    const bool itself = Capitals(disc.filename().string()) == VideoFolder;
    const fs::path folder = itself ? disc : EntryOf(disc, VideoFolder);
    const fs::path file = folder.empty() ? folder : EntryOf(folder, name);
    std::error_code failed;
    if (file.empty() || !fs::is_regular_file(file, failed)) return std::nullopt;
    std::ifstream bytes(file, std::ios::binary);
    return ReadSome(bytes, Most);
}

/// An image's file system.
class Image {
  public:
    explicit Image(const std::string& file) : file_(file, std::ios::binary) {}

    std::optional<std::string> Read(const std::string& name) {
        // The primary volume descriptor, and in it the record of the root folder.
        const std::string descriptor = Bytes({16, DiscSector});
        const bool whole = descriptor.size() == DiscSector;
        if (!whole || descriptor.compare(1, 5, "CD001") != 0) return std::nullopt;
        const auto folder = Find(Bytes(ExtentAt(descriptor, 156)), VideoFolder);
        const auto file = folder ? Find(Bytes(*folder), name) : std::nullopt;
        return file ? std::optional(Bytes(*file)) : std::nullopt;
    }

  private:
    struct Extent {
        std::uint32_t sector = 0, length = 0; ///< bytes
    };
    static Extent ExtentAt(const std::string& records, std::size_t at) {
        return {LittleAt(records, at + 2), LittleAt(records, at + 10)};
    }
    std::string Bytes(const Extent& extent) {
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(extent.sector) * std::streamoff{DiscSector});
        return ReadSome(file_, extent.length);
    }
    // A record does not cross a sector's end; what is left of one is zero.
    static std::optional<Extent> Find(const std::string& records, const std::string& name) {
        for (std::size_t at = 0; at + 33 < records.size();) {
            const auto length = static_cast<unsigned char>(records[at]);
            const auto named = static_cast<unsigned char>(records[at + 32]);
            const std::string found = records.substr(at + 33, named);
            if (length != 0 && found.substr(0, found.find(';')) == name)
                return ExtentAt(records, at);
            at = length != 0 ? at + length : (at / DiscSector + 1) * DiscSector;
        }
        return std::nullopt;
    }

    std::ifstream file_;
};

} // namespace

std::optional<std::string> ReadDiscFile(const std::string& disc, const std::string& name) {
    std::error_code failed;
    if (fs::is_directory(disc, failed)) return FromFolder(disc, name);
    return fs::is_fifo(disc, failed) ? std::nullopt : Image(disc).Read(name);
}

} // namespace vk
