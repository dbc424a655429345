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

struct Frame {
    std::string id;
    std::uint64_t size = 0;
    bool plain = true; // neither compressed nor otherwise made into something else
    bool last = false; // nothing more is to be read: padding, an empty or an unreadable frame
};

Frame ReadFrameHeader(MediaFile& file, const Layout& layout) {
    const std::string header = file.Read(layout.HeaderLength());
    Frame frame;
    frame.id = header.substr(0, layout.idLength);
    frame.size = BigEndian(std::string_view(header).substr(layout.idLength, layout.sizeLength),
                           layout.sizeBitsPerByte);
    const auto format = static_cast<unsigned char>(layout.flagsLength > 0 ? header.back() : 0);
    const bool flagged = format & 0x80;
    frame.plain = format == 0;
    const bool padding = frame.id.find_first_not_of('\0') == std::string::npos;
    frame.last = flagged || padding || frame.size == 0;
    return frame;
}

/// Reads the frames of one tag.
class Frames {
  public:
    Frames(MediaFile& file, const Layout& layout, const GenreTable& genres, TagRecord& tag,
           const TagReading& reading)
        : file_(file), layout_(layout), genres_(genres), tag_(tag), reading_(reading) {}

    void Read() {
        file_.Seek(0);
        const std::string header = file_.Read(TagHeaderLength);
        const std::uint64_t end =
            TagHeaderLength + BigEndian(std::string_view(header).substr(6), 7);
        for (int count = 0; file_.Position() < end; ++count) {
            const Frame frame = ReadFrameHeader(file_, layout_);
            if (reading_.extended && !frame.plain && Wanted(frame)) throw UnknownFrameForm();
            if (frame.last) return;
            if (count == MaxFrames) throw Error("Too many frames");
            Take(frame);
        }
    }

  private:
    bool IsPicture(const Frame& frame) const {
        return frame.id == layout_.picture && reading_.picture == Picture::Read &&
               frame.size <= MaxPictureBytes;
    }
    bool Wanted(const Frame& frame) const {
        return IsPicture(frame) || frame.id == layout_.title || frame.id == layout_.artist ||
               frame.id == layout_.album || frame.id == layout_.genre || frame.id == layout_.track;
    }

    void Take(const Frame& frame) {
        if (IsPicture(frame))
            TakePicture(file_.Read(frame.size));
        else if (!Wanted(frame))
            file_.Skip(frame.size);
        else
            TakeText(frame.id, ReadValues(frame.size));
    }

    /// The frame's text, which has several values only when it is decoded.
    std::vector<std::string> ReadValues(std::uint64_t size) {
        const std::string bytes = file_.Read(std::min(size, MaxTextBytes));
        file_.Skip(size - bytes.size());
        if (reading_.extended) return DecodedValues(bytes);
        return {TagText(std::string_view(bytes).substr(1))};
    }

    void TakeText(const std::string& id, const std::vector<std::string>& values) {
        const std::string text = Join(values, "; ");
        if (id == layout_.title)
            tag_.Title = text;
        else if (id == layout_.artist)
            tag_.Artist = text;
        else if (id == layout_.album)
            tag_.Album = text;
        else if (id == layout_.track)
            tag_.Track = TrackNumber(text);
        else if (reading_.extended)
            TakeGenres(values, genres_, tag_);
        else
            TakeGenreText(Trim(text), genres_, tag_);
    }

    void TakePicture(const std::string& frame) {
        const bool front = IsFrontCover(frame, layout_.mimeText);
        if (reading_.extended && !tag_.PictureData.empty() && (front_ || !front)) return;
        tag_.PictureData = PictureOfFrame(frame, layout_.mimeText);
        front_ = front;
    }

    MediaFile& file_;
    const Layout& layout_;
    const GenreTable& genres_;
    TagRecord& tag_;
    const TagReading& reading_;
    bool front_ = false; ///< the picture is the front cover
};

} // namespace

void ReadID3v22(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                const TagReading& reading) {
    Frames(file, V22, genres, tag, reading).Read();
}
void ReadID3v23(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                const TagReading& reading) {
    Frames(file, V23, genres, tag, reading).Read();
}
void ReadID3v24(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                const TagReading& reading) {
    Frames(file, V24, genres, tag, reading).Read();
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

namespace {

// "RX" and "CR" stand for genres without a number.
std::string GenreNamed(const std::string& reference, const GenreTable& genres, TagRecord& tag) {
    if (reference == "RX") return "Remix";
    if (reference == "CR") return "Cover";
    const auto number = IsNumeric(reference) ? ParseInteger(reference) : std::nullopt;
    if (!number || *number < 0 || *number > genres.UpperIndex()) return {};
    if (tag.GenreNum == UnknownGenreNum) tag.GenreNum = static_cast<std::uint8_t>(*number);
    return genres.Description(static_cast<int>(*number));
}

// "(51)(39)", "(13)Power Pop", where the text refines the number, "17" or a text.
void AddGenres(std::string value, const GenreTable& genres, TagRecord& tag,
               std::vector<std::string>& names) {
    std::vector<std::string> referred;
    while (value.starts_with('(') && !value.starts_with("((")) {
        const auto close = value.find(')');
        const std::string name =
            close == std::string::npos ? "" : GenreNamed(value.substr(1, close - 1), genres, tag);
        if (name.empty()) break;
        referred.push_back(name);
        value = Trim(value.substr(close + 1));
    }
    const std::string name = GenreNamed(value, genres, tag);
    if (!value.empty() && referred.size() == 1) referred.clear();
    names.insert(names.end(), referred.begin(), referred.end());
    if (!value.empty()) names.push_back(name.empty() ? value : name);
}

constexpr std::size_t EncodingLength = 1;
constexpr std::size_t FormatLength = 3;
constexpr std::size_t TypeLength = 1;

/// Where the kind of the picture stands.
std::size_t EndOfFormat(std::string_view frame, bool mimeText) {
    return mimeText ? frame.find('\0', EncodingLength) : EncodingLength + FormatLength - 1;
}

} // namespace

void TakeGenres(const std::vector<std::string>& values, const GenreTable& genres, TagRecord& tag) {
    std::vector<std::string> names;
    tag.GenreNum = UnknownGenreNum;
    for (const std::string& value : values)
        AddGenres(value, genres, tag, names);
    tag.Genre = Join(names, "; ");
}

bool IsFrontCover(std::string_view frame, bool mimeText) {
    constexpr char FrontCover = 3;
    const auto formatEnd = EndOfFormat(frame, mimeText);
    return formatEnd < frame.size() - 1 && frame[formatEnd + 1] == FrontCover;
}

std::string PictureOfFrame(std::string_view frame, bool mimeText) {
    const auto formatEnd = EndOfFormat(frame, mimeText);
    if (formatEnd == std::string_view::npos) return {};
    const auto descriptionEnd = frame.find('\0', formatEnd + 1 + TypeLength);
    if (descriptionEnd == std::string_view::npos) return {};
    return std::string(frame.substr(descriptionEnd + 1));
}

} // namespace vk
