#include "library/tags/genre_table.h"

#include "core/text.h"
#include "library/tags/tag_text.h"

#include <array>

namespace vk {

namespace {

// From 84 on each entry stands one below the number that is published for it: catalogues have been
// filled with this order.
constexpr std::array<const char*, 115> BuiltIn = {"Blues",
                                                  "Classic Rock",
                                                  "Country",
                                                  "Dance",
                                                  "Disco",
                                                  "Funk",
                                                  "Grunge",
                                                  "Hip-Hop",
                                                  "Jazz",
                                                  "Metal",
                                                  "New Age",
                                                  "Oldies",
                                                  "Other",
                                                  "Pop",
                                                  "R&B",
                                                  "Rap",
                                                  "Reggae",
                                                  "Rock",
                                                  "Techno",
                                                  "Industrial",
                                                  "Alternative",
                                                  "Ska",
                                                  "Death Metal",
                                                  "Pranks",
                                                  "Soundtrack",
                                                  "Euro-Techno",
                                                  "Ambient",
                                                  "Trip-Hop",
                                                  "Vocal",
                                                  "Jazz+Funk",
                                                  "Fusion",
                                                  "Trance",
                                                  "Classical",
                                                  "Instrumental",
                                                  "Acid",
                                                  "House",
                                                  "Game",
                                                  "Sound Clip",
                                                  "Gospel",
                                                  "Noise",
                                                  "AlternRock",
                                                  "Bass",
                                                  "Soul",
                                                  "Punk",
                                                  "Space",
                                                  "Meditative",
                                                  "Instrumental Pop",
                                                  "Instrumental Rock",
                                                  "Ethnic",
                                                  "Gothic",
                                                  "Darkwave",
                                                  "Techno-Industrial",
                                                  "Electronic",
                                                  "Pop-Folk",
                                                  "Eurodance",
                                                  "Dream",
                                                  "Southern Rock",
                                                  "Comedy",
                                                  "Cult",
                                                  "Gangsta",
                                                  "Top 40",
                                                  "Christian Rap",
                                                  "Pop/Funk",
                                                  "Jungle",
                                                  "Native American",
                                                  "Cabaret",
                                                  "New Wave",
                                                  "Psychadelic",
                                                  "Rave",
                                                  "Showtunes",
                                                  "Trailer",
                                                  "Lo-Fi",
                                                  "Tribal",
                                                  "Acid Punk",
                                                  "Acid Jazz",
                                                  "Polka",
                                                  "Retro",
                                                  "Musical",
                                                  "Rock & Roll",
                                                  "Hard Rock",
                                                  "Folk",
                                                  "Folk/Rock",
                                                  "National Folk",
                                                  "Swing",
                                                  "Bebob",
                                                  "Latin",
                                                  "Revival",
                                                  "Celtic",
                                                  "Bluegrass",
                                                  "Avantgarde",
                                                  "Gothic Rock",
                                                  "Progressive Rock",
                                                  "Psychedelic Rock",
                                                  "Symphonic Rock",
                                                  "Slow Rock",
                                                  "Big Band",
                                                  "Chorus",
                                                  "Easy Listening",
                                                  "Acoustic",
                                                  "Humour",
                                                  "Speech",
                                                  "Chanson",
                                                  "Opera",
                                                  "Chamber Music",
                                                  "Sonata",
                                                  "Symphony",
                                                  "Booty Bass",
                                                  "Primus",
                                                  "Porn Groove",
                                                  "Satire",
                                                  "Slow Jam",
                                                  "Club",
                                                  "Tango",
                                                  "Samba",
                                                  "Folklore"};

} // namespace

void GenreTable::FillBuiltIn() {
    genres_.assign(BuiltIn.begin(), BuiltIn.end());
}

bool GenreTable::FillFromLines(std::string_view contents) {
    if (contents.ends_with('\n')) contents.remove_suffix(1);
    if (contents.empty()) return false;
    genres_.clear();
    while (UpperIndex() + 1 < UnknownGenreNum) {
        const auto end = contents.find('\n');
        genres_.push_back(TagText(Trim(contents.substr(0, end))));
        if (end == std::string_view::npos) break;
        contents.remove_prefix(end + 1);
    }
    return true;
}

std::string GenreTable::Description(int index) const {
    if (index < 0 || index > UpperIndex()) return UnknownGenre;
    return genres_[static_cast<std::size_t>(index)];
}

std::uint8_t GenreTable::Number(std::string_view description) const {
    for (std::size_t i = 0; i < genres_.size(); ++i)
        if (EqualNoCase(genres_[i], description)) return static_cast<std::uint8_t>(i);
    return UnknownGenreNum;
}

void GenreTable::Take(int index, TagRecord& tag) const {
    const bool known = index >= 0 && index <= UpperIndex();
    tag.GenreNum = known ? static_cast<std::uint8_t>(index) : UnknownGenreNum;
    tag.Genre = Description(index);
}

void GenreTable::Complete(TagRecord& tag) const {
    if (tag.Genre.empty())
        tag.Genre = UnknownGenre;
    else if (tag.GenreNum == UnknownGenreNum)
        tag.GenreNum = Number(tag.Genre);
}

} // namespace vk
