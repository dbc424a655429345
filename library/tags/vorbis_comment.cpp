#include "library/tags/vorbis_comment.h"

#include "core/error_report.h"
#include "core/text.h"
#include "library/tags/tag_text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <map>

namespace vk {

namespace {

constexpr std::string_view CommentMarker = "\x03vorbis";
constexpr std::string_view SetupMarker = "\x05vorbis";
constexpr std::uint64_t ChunkLength = 256;
// The headers are in the first pages, so a file is not read on for its marker for ever.
constexpr std::uint64_t MaxSearch = 1024 * 1024;
constexpr std::uint64_t MaxComments = 10000;
constexpr std::uint64_t MaxTextBytes = 64 * 1024;

enum class Field { Title, Artist, Track, Album, Genre, GenreNum };

struct Keys {
    Field field;
    std::initializer_list<std::string_view> names; // compared exactly
};

const std::array<Keys, 6> KnownKeys = {{
    {Field::Title, {"Title", "title", "TITLE"}},
    {Field::Artist, {"Artist", "artist", "ARTIST"}},
    {Field::Track,
     {"Track", "TRACK", "track", "trackno", "TRACKNO", "TrackNo", "tracknumber", "TrackNumber",
      "TRACKNUMBER"}},
    {Field::Album, {"Album", "album", "ALBUM"}},
    {Field::Genre, {"Genre", "genre", "GENRE"}},
    {Field::GenreNum,
     {"GenreID", "genreid", "GENREID", "GenreNo", "genreno", "GENRENO", "GenreNum", "genrenum",
      "GENRENUM"}},
}};

void TakeGenreNum(std::string_view value, const GenreTable& genres, TagRecord& tag) {
    const auto number = ParseInteger(value);
    if (number && *number >= 0 && *number <= genres.UpperIndex())
        genres.Take(static_cast<int>(*number), tag);
}

void TakeField(Field field, const std::string& value, const GenreTable& genres, TagRecord& tag) {
    switch (field) {
    case Field::Title:
        tag.Title = value;
        break;
    case Field::Artist:
        tag.Artist = value;
        break;
    case Field::Track:
        tag.Track = TrackNumber(value);
        break;
    case Field::Album:
        tag.Album = value;
        break;
    case Field::Genre:
        tag.Genre = value;
        break;
    case Field::GenreNum:
        TakeGenreNum(value, genres, tag);
        break;
    }
}

void TakeComment(std::string_view comment, const GenreTable& genres, TagRecord& tag) {
    const auto equals = comment.find('=');
    if (equals == std::string_view::npos) return;
    const std::string_view key = comment.substr(0, equals);
    for (const Keys& keys : KnownKeys)
        if (std::find(keys.names.begin(), keys.names.end(), key) != keys.names.end())
            return TakeField(keys.field, TagText(comment.substr(equals + 1)), genres, tag);
}

/// The same with keys in any case and several values of one.
void GatherComment(std::string_view comment, std::map<Field, std::string>& gathered) {
    const auto equals = comment.find('=');
    if (equals == std::string_view::npos) return;
    const std::string value = TagText(comment.substr(equals + 1));
    for (const Keys& keys : KnownKeys)
        if (std::ranges::any_of(keys.names, [&](std::string_view name) {
                return EqualNoCase(name, comment.substr(0, equals));
            })) {
            std::string& text = gathered[keys.field];
            text += (text.empty() || value.empty() ? "" : "; ") + value;
            return;
        }
}

/// Leaves the file after the comment marker; false when the setup header, the end or the limit came
/// first.
bool FindComment(MediaFile& file) {
    std::string buffer; // the last chunk, after the end of the one before
    file.Seek(0);
    while (file.Position() < std::min(file.Length(), MaxSearch)) {
        const std::string chunk = file.ReadUpTo(ChunkLength);
        if (chunk.empty()) return false;
        buffer = std::string(LastBytes(buffer, CommentMarker.size() - 1)) + chunk;
        const auto at = buffer.find(CommentMarker);
        if (at != std::string::npos) {
            file.Seek(file.Position() - buffer.size() + at + CommentMarker.size());
            return true;
        }
        if (buffer.find(SetupMarker) != std::string::npos) return false;
    }
    return false;
}

std::uint64_t ReadLength(MediaFile& file) {
    return LittleEndian(file.Read(4));
}

/// Goes through the comments that begin here.
void EachComment(MediaFile& file, const std::function<void(std::string_view)>& take) {
    file.Skip(ReadLength(file)); // the vendor's text
    const std::uint64_t count = std::min(ReadLength(file), MaxComments);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t length = ReadLength(file);
        const std::string comment = file.Read(std::min(length, MaxTextBytes));
        file.Skip(length - comment.size());
        take(comment);
    }
}

/// Leaves a FLAC file at its comments; false when it has none.
bool FindFlacComment(MediaFile& file) {
    constexpr int CommentBlock = 4, LastBlock = 0x80, MostBlocks = 1000;
    file.Seek(4);
    for (int block = 0; block < MostBlocks; ++block) {
        const std::string header = file.ReadUpTo(4);
        if (header.size() < 4) return false;
        const int kind = static_cast<unsigned char>(header[0]);
        if ((kind & 0x7F) == CommentBlock) return true;
        if (kind & LastBlock) return false;
        file.Seek(file.Position() + BigEndian(std::string_view(header).substr(1)));
    }
    return false;
}

} // namespace

void ReadVorbisComment(MediaFile& file, const GenreTable& genres, TagRecord& tag) {
    if (!FindComment(file)) return;
    EachComment(file, [&](std::string_view comment) { TakeComment(comment, genres, tag); });
}

void ReadFlacComment(MediaFile& file, const GenreTable& genres, TagRecord& tag) {
    if (!FindFlacComment(file)) return;
    std::map<Field, std::string> gathered;
    const auto take = [&] {
        for (const auto& [field, text] : gathered)
            TakeField(field, text, genres, tag);
    };
    try {
        EachComment(file, [&](std::string_view comment) { GatherComment(comment, gathered); });
    } catch (...) {
        take();
        throw;
    }
    take();
}

} // namespace vk
