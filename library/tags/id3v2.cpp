#include "library/tags/id3v2.h"

#include "core/error_report.h"
#include "core/text.h"
#include "library/tags/tag_text.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::size_t TagHeaderLength = 10;
// Bounds on what a hostile tag can cost; ordinary ones have a few dozen frames.
constexpr int MaxFrames = 10000;
constexpr std::uint64_t MaxTextBytes = 64 * 1024;
constexpr std::uint64_t MaxPictureBytes = 64 * 1024 * 1024;

/// How a version lays out its frames and what it calls them.
struct Layout {
    std::size_t idLength;
    std::size_t sizeLength;
    std::size_t flagsLength;
    int sizeBitsPerByte;
    std::string_view title, artist, album, genre, track, picture; // no picture: not read
    bool mimeText; // else three letters name the picture's format

    std::size_t HeaderLength() const { return idLength + sizeLength + flagsLength; }
};

constexpr Layout V22 = {3, 3, 0, 8, "TT2", "TP1", "TAL", "TCO", "TRK", "PIC", false};
constexpr Layout V23 = {4, 4, 2, 8, "TIT2", "TPE1", "TALB", "TCON", "TRCK", "APIC", true};
constexpr Layout V24 = {4, 4, 2, 7, "TIT2", "TPE1", "TALB", "TCON", "TRCK", "APIC", true};

/// The layout, its picture frame one like any other when it is to be skipped.
Layout Without(Picture picture, Layout layout) {
    if (picture == Picture::Skip) layout.picture = "";
    return layout;
}

struct Frame {
    std::string id;
    std::uint64_t size = 0;
    bool last = false; // nothing more is to be read: padding, an empty or an unreadable frame
};

Frame ReadFrameHeader(MediaFile& file, const Layout& layout) {
    const std::string header = file.Read(layout.HeaderLength());
    Frame frame;
    frame.id = header.substr(0, layout.idLength);
    frame.size = BigEndian(std::string_view(header).substr(layout.idLength, layout.sizeLength),
                           layout.sizeBitsPerByte);
    const bool flagged =
        layout.flagsLength > 0 && (static_cast<unsigned char>(header.back()) & 0x80);
    const bool padding = frame.id.find_first_not_of('\0') == std::string::npos;
    frame.last = flagged || padding || frame.size == 0;
    return frame;
}

/// The frame's value: its encoding byte is not looked at.
std::string ReadValue(MediaFile& file, std::uint64_t size) {
    std::string bytes = file.Read(std::min(size, MaxTextBytes));
    file.Skip(size - bytes.size());
    return TagText(std::string_view(bytes).substr(1));
}

void TakeFrame(MediaFile& file, const Frame& frame, const Layout& layout, const GenreTable& genres,
               TagRecord& tag) {
    if (frame.id == layout.picture && frame.size <= MaxPictureBytes)
        tag.PictureData = PictureOfFrame(file.Read(frame.size), layout.mimeText);
    else if (frame.id == layout.title)
        tag.Title = ReadValue(file, frame.size);
    else if (frame.id == layout.artist)
        tag.Artist = ReadValue(file, frame.size);
    else if (frame.id == layout.album)
        tag.Album = ReadValue(file, frame.size);
    else if (frame.id == layout.genre)
        TakeGenreText(Trim(ReadValue(file, frame.size)), genres, tag);
    else if (frame.id == layout.track)
        tag.Track = TrackNumber(ReadValue(file, frame.size));
    else
        file.Skip(frame.size);
}

void ReadFrames(MediaFile& file, const Layout& layout, const GenreTable& genres, TagRecord& tag) {
    file.Seek(0);
    const std::string header = file.Read(TagHeaderLength);
    const std::uint64_t end = TagHeaderLength + BigEndian(std::string_view(header).substr(6), 7);
    for (int count = 0; file.Position() < end; ++count) {
        const Frame frame = ReadFrameHeader(file, layout);
        if (frame.last) return;
        if (count == MaxFrames) throw Error("Too many frames");
        TakeFrame(file, frame, layout, genres, tag);
    }
}

} // namespace

void ReadID3v22(MediaFile& file, const GenreTable& genres, TagRecord& tag, Picture picture) {
    ReadFrames(file, Without(picture, V22), genres, tag);
}
void ReadID3v23(MediaFile& file, const GenreTable& genres, TagRecord& tag, Picture picture) {
    ReadFrames(file, Without(picture, V23), genres, tag);
}
void ReadID3v24(MediaFile& file, const GenreTable& genres, TagRecord& tag, Picture picture) {
    ReadFrames(file, Without(picture, V24), genres, tag);
}

void TakeGenreText(std::string_view text, const GenreTable& genres, TagRecord& tag) {
    tag.Genre = text;
    tag.GenreNum = UnknownGenreNum;
    const auto open = text.find('(');
    const auto close = text.find(')', open == std::string_view::npos ? text.size() : open);
    if (close == std::string_view::npos) return;
    const std::string_view between = text.substr(open + 1, close - open - 1);
    if (!IsNumeric(between)) return;
    const auto number = ParseInteger(between).value_or(UnknownGenreNum);
    const int index =
        number < 0 || number > UnknownGenreNum ? UnknownGenreNum : static_cast<int>(number);
    genres.Take(index, tag);
    const std::string rest = Trim(std::string(text.substr(0, open)).append(text.substr(close + 1)));
    if (!rest.empty()) tag.Genre = rest;
}

std::string PictureOfFrame(std::string_view frame, bool mimeText) {
    constexpr std::size_t EncodingLength = 1;
    constexpr std::size_t FormatLength = 3;
    constexpr std::size_t TypeLength = 1;
    const auto formatEnd =
        mimeText ? frame.find('\0', EncodingLength) : EncodingLength + FormatLength - 1;
    if (formatEnd == std::string_view::npos) return {};
    const auto descriptionEnd = frame.find('\0', formatEnd + 1 + TypeLength);
    if (descriptionEnd == std::string_view::npos) return {};
    return std::string(frame.substr(descriptionEnd + 1));
}

} // namespace vk
