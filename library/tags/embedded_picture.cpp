#include "library/tags/embedded_picture.h"

#include "core/text.h"
#include "library/tags/foreign_tag.h"
#include "library/tags/id3v2.h"
#include "platform/random_file.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <vector>

namespace vk {

namespace {

// Bounds on what a hostile file can cost.
constexpr std::uint64_t MaxPictureBytes = 64 * 1024 * 1024;
constexpr std::uint64_t MaxBlocks = 1000;
constexpr std::uint64_t MaxComments = 10000;

constexpr std::string_view BlockKey = "METADATA_BLOCK_PICTURE=";
constexpr std::uint64_t FrontCover = 3;

std::uint64_t Byte(char c) {
    return static_cast<unsigned char>(c);
}

/// Takes fields off the front of a text; throws when it is too short.
class Fields {
  public:
    explicit Fields(std::string_view bytes) : left_(bytes) {}
    std::string_view Take(std::uint64_t count) {
        if (count > left_.size()) throw std::exception();
        const std::string_view taken = left_.substr(0, count);
        left_.remove_prefix(count);
        return taken;
    }
    std::uint64_t Big() { return BigEndian(Take(4)); }
    std::uint64_t Little() { return LittleEndian(Take(4)); }

  private:
    std::string_view left_;
};

/// Keeps the front cover, else the first picture of a file.
class Best {
  public:
    void Offer(std::string_view block) {
        if (block.size() < 4) return;
        const bool front = BigEndian(block.substr(0, 4)) == FrontCover;
        if (!picture_.empty() && (front_ || !front)) return;
        std::string picture = PictureOfBlock(block);
        if (picture.empty()) return;
        picture_ = std::move(picture);
        front_ = front;
    }
    std::string Take() { return std::move(picture_); }

  private:
    std::string picture_;
    bool front_ = false;
};

// The description before a picture may be in a two-byte encoding, whose NULs end it too early for
// the frame's reader.
std::string FromSignature(const std::string& picture) {
    constexpr std::size_t LongestDescription = 512;
    constexpr std::array<std::string_view, 3> Signatures = {"\xFF\xD8\xFF", "\x89PNG", "GIF8"};
    const std::string_view head = std::string_view(picture).substr(0, LongestDescription);
    std::size_t first = std::string_view::npos;
    for (const std::string_view signature : Signatures)
        first = std::min(first, head.find(signature));
    return first == std::string_view::npos ? picture : picture.substr(first);
}

std::string ID3Picture(MediaFile& file, std::string_view header, bool extended) {
    const GenreTable noGenres;
    const TagReading reading{Picture::Read, extended};
    TagRecord tag;
    try {
        const auto version = Byte(header[3]);
        if (version == 2) ReadID3v22(file, noGenres, tag, reading);
        if (version == 3) ReadID3v23(file, noGenres, tag, reading);
        if (version == 4) ReadID3v24(file, noGenres, tag, reading);
    } catch (const std::exception&) {
        // A damaged tag: the picture before the damage stays.
    }
    return FromSignature(tag.PictureData);
}

std::string FlacPicture(MediaFile& file) {
    constexpr std::uint64_t PictureBlock = 6;
    Best best;
    file.Seek(4);
    for (std::uint64_t count = 0; count < MaxBlocks; ++count) {
        const std::string header = file.ReadUpTo(4);
        if (header.size() < 4) break;
        const std::uint64_t length = BigEndian(std::string_view(header).substr(1));
        if ((Byte(header[0]) & 0x7F) == PictureBlock)
            best.Offer(file.ReadUpTo(length));
        else
            file.Seek(file.Position() + length);
        if (Byte(header[0]) & 0x80) break;
    }
    return best.Take();
}

/// A page's share of a packet. The pages of other streams in the file are passed over.
struct Page {
    std::string serial;
    std::vector<std::uint64_t> lengths; // of the segments
};

std::optional<Page> ReadPage(MediaFile& file) {
    const std::string header = file.ReadUpTo(27);
    if (header.size() < 27 || !header.starts_with("OggS")) return std::nullopt;
    Page page{header.substr(14, 4), {}};
    for (const char c : file.Read(Byte(header[26])))
        page.lengths.push_back(Byte(c));
    return page;
}

/// The second packet of the first stream, which holds the comments.
std::string CommentPacket(MediaFile& file) {
    constexpr std::uint64_t WholeSegment = 255;
    std::string packet, serial;
    int number = 0;
    file.Seek(0);
    while (const auto page = ReadPage(file)) {
        if (serial.empty()) serial = page->serial;
        for (const std::uint64_t length : page->lengths) {
            if (page->serial != serial || number == 0)
                file.Skip(length);
            else
                packet += file.Read(length);
            if (page->serial == serial && length < WholeSegment && number++ == 1) return packet;
        }
        if (packet.size() > 2 * MaxPictureBytes) break;
    }
    return {};
}

std::string OggPicture(MediaFile& file) {
    const std::string packet = CommentPacket(file);
    Best best;
    try {
        Fields fields(packet);
        fields.Take(packet.starts_with("OpusTags") ? 8 : 7);
        fields.Take(fields.Little()); // the vendor's text
        const std::uint64_t count = std::min(fields.Little(), MaxComments);
        for (std::uint64_t i = 0; i < count; ++i) {
            const std::string_view comment = fields.Take(fields.Little());
            if (EqualNoCase(comment.substr(0, BlockKey.size()), BlockKey))
                best.Offer(FromBase64(comment.substr(BlockKey.size())));
        }
    } catch (const std::exception&) {
        // What came before the damage stays.
    }
    return best.Take();
}

} // namespace

std::string FromBase64(std::string_view text) {
    static constexpr std::string_view Digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    static const auto values = [] {
        std::array<int, 256> table;
        table.fill(-1);
        for (std::size_t i = 0; i < Digits.size(); ++i)
            table[Byte(Digits[i])] = static_cast<int>(i);
        return table;
    }();
    while (text.ends_with('='))
        text.remove_suffix(1);
    std::string bytes;
    bytes.reserve(text.size() * 3 / 4);
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        const int value = values[Byte(c)];
        if (value < 0) return {};
        bits = bits << 6 | static_cast<unsigned>(value);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes.push_back(static_cast<char>(bits >> count & 0xFF));
    }
    return bytes;
}

std::string PictureOfBlock(std::string_view block) {
    constexpr std::uint64_t MeasuresLength = 16; // width, height, depth, colours
    try {
        Fields fields(block);
        fields.Take(4);            // kind of picture
        fields.Take(fields.Big()); // MIME type
        fields.Take(fields.Big()); // description
        fields.Take(MeasuresLength);
        return std::string(fields.Take(fields.Big()));
    } catch (const std::exception&) {
        return {};
    }
}

namespace {

// What the readers above do not know.
std::string ForeignPicture(MediaFile& file) {
    const FileForm form = FormOf(file);
    const bool any = form != FileForm::Other || HasForeignID3v2(file) || EndsInApeTag(file);
    std::string picture = any ? ReadForeignPicture(file, form) : std::string();
    return picture.size() <= MaxPictureBytes ? picture : std::string();
}

std::string OwnPicture(MediaFile& file, bool extended) {
    const bool foreign = HasForeignID3v2(file);
    file.Seek(0);
    const std::string header = file.ReadUpTo(10);
    if (header.size() < 10 || foreign) return {};
    if (header.starts_with("ID3")) return ID3Picture(file, header, extended);
    if (header.starts_with("fLaC")) return FlacPicture(file);
    if (header.starts_with("OggS")) return OggPicture(file);
    return {};
}

} // namespace

std::string ReadEmbeddedPicture(MediaFile& file, bool extended) {
    try {
        std::string picture = OwnPicture(file, extended);
        return picture.empty() && extended ? ForeignPicture(file) : picture;
    } catch (const std::exception&) {
        return {}; // a damaged file has no picture
    } catch (const UnknownFrameForm&) {
        return ForeignPicture(file);
    }
}

std::string ReadEmbeddedPicture(const std::string& path, bool extended) {
    const RandomFile opened(path);
    if (!opened.IsOpen()) return {};
    MediaFile file(opened);
    return ReadEmbeddedPicture(file, extended);
}

} // namespace vk
