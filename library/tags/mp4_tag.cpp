#include "library/tags/mp4_tag.h"

#include "core/error_report.h"
#include "core/text.h"
#include "core/utf16.h"
#include "library/tags/id3v2.h"
#include "library/tags/tag_text.h"

#include <algorithm>
#include <optional>

namespace vk {

namespace {

constexpr int MostAtoms = 10000; // side by side
constexpr std::uint64_t MaxTextBytes = 64 * 1024;
constexpr std::uint64_t HeaderLength = 8;

/// A box that holds others, or a value.
struct Atom {
    std::string name;
    std::uint64_t begin, end; ///< of what is in it
};

/// Goes through the atoms that lie side by side in a stretch of the file.
class Atoms {
  public:
    Atoms(MediaFile& file, std::uint64_t begin, std::uint64_t end)
        : file_(file), next_(begin), end_(std::min(end, file.Length())) {}

    std::optional<Atom> Next() {
        if (next_ + HeaderLength > end_) return std::nullopt;
        if (++count_ > MostAtoms) throw Error("Too many atoms");
        file_.Seek(next_);
        const std::string header = file_.Read(HeaderLength);
        std::uint64_t size = BigEndian(std::string_view(header).substr(0, 4));
        std::uint64_t begin = next_ + HeaderLength;
        if (size == 1) { // too long for its field
            size = BigEndian(file_.Read(8));
            begin += 8;
        }
        if (size == 0) size = end_ - next_; // up to the end
        if (size < begin - next_ || size > end_ - next_) return std::nullopt;
        next_ += size;
        return Atom{header.substr(4), begin, next_};
    }
    std::optional<Atom> Find(std::string_view name) {
        auto atom = Next();
        while (atom && atom->name != name)
            atom = Next();
        return atom;
    }

  private:
    MediaFile& file_;
    std::uint64_t next_, end_;
    int count_ = 0;
};

// Before its atoms this one has a version, but for some old files.
std::uint64_t BeginOfMeta(MediaFile& file, const Atom& meta) {
    file.Seek(meta.begin);
    return file.ReadUpTo(HeaderLength).ends_with("hdlr") ? meta.begin : meta.begin + 4;
}

std::optional<Atom> FindItems(MediaFile& file) {
    Atom place{"", 0, file.Length()};
    for (const char* name : {"moov", "udta", "meta", "ilst"}) {
        const auto found = Atoms(file, place.begin, place.end).Find(name);
        if (!found) return std::nullopt;
        place = *found;
        if (place.name == "meta") place.begin = BeginOfMeta(file, place);
    }
    return place;
}

/// The values of an item; texts as UTF-8, numbers as they are.
std::vector<std::string> ValuesOf(MediaFile& file, const Atom& item) {
    constexpr std::uint64_t Kind = 4, Locale = 4, Utf16 = 2;
    std::vector<std::string> values;
    Atoms atoms(file, item.begin, item.end);
    while (const auto data = atoms.Find("data")) {
        if (data->end - data->begin < Kind + Locale) continue;
        file.Seek(data->begin);
        const std::uint64_t kind = BigEndian(file.Read(Kind));
        file.Skip(Locale);
        std::string value = file.Read(std::min(data->end - file.Position(), MaxTextBytes));
        values.push_back(kind == Utf16 ? Utf16ToUtf8(value, Utf16Order::Big) : std::move(value));
    }
    return values;
}

// In bytes 2 and 3; behind them is the number of all tracks.
std::uint16_t TrackOf(const std::vector<std::string>& values) {
    const bool whole = !values.empty() && values[0].size() >= 4;
    return whole ? static_cast<std::uint16_t>(BigEndian(values[0].substr(2, 2))) : 0;
}

// Numbers of the ID3v1 list count from 1 here.
void TakeGenreNumber(const std::vector<std::string>& values, const GenreTable& genres,
                     TagRecord& tag) {
    const auto number = values.empty() ? 0 : BigEndian(values[0].substr(0, 2));
    if (number > 0) TakeGenres({std::to_string(number - 1)}, genres, tag);
}

std::string TextOf(const std::vector<std::string>& values) {
    return TagText(Join(values, "; "));
}

void TakeItem(MediaFile& file, const Atom& item, const GenreTable& genres, TagRecord& tag) {
    if (item.name == "\xA9nam")
        tag.Title = TextOf(ValuesOf(file, item));
    else if (item.name == "\xA9"
                          "ART")
        tag.Artist = TextOf(ValuesOf(file, item));
    else if (item.name == "\xA9"
                          "alb")
        tag.Album = TextOf(ValuesOf(file, item));
    else if (item.name == "\xA9gen")
        TakeGenres(ValuesOf(file, item), genres, tag);
    else if (item.name == "gnre")
        TakeGenreNumber(ValuesOf(file, item), genres, tag);
    else if (item.name == "trkn")
        tag.Track = TrackOf(ValuesOf(file, item));
}

} // namespace

void ReadMp4Tag(MediaFile& file, const GenreTable& genres, TagRecord& tag) {
    const auto items = FindItems(file);
    if (!items) return;
    Atoms atoms(file, items->begin, items->end);
    while (const auto item = atoms.Next())
        TakeItem(file, *item, genres, tag);
}

} // namespace vk
