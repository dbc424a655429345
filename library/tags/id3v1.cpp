#include "library/tags/id3v1.h"

#include "core/text.h"
#include "library/tags/tag_text.h"

namespace vk {

namespace {

constexpr std::size_t TextWidth = 30;
constexpr std::size_t YearWidth = 4;
constexpr std::uint64_t MarkerLength = 3;

std::string Text(std::string_view field) {
    return Trim(TagText(ZString(field)));
}

ID3v1Texts ReadTexts(MediaFile& file) {
    ID3v1Texts texts;
    SpaceOut(texts);
    for (std::string* text :
         {&texts.Title, &texts.Artist, &texts.Album, &texts.Year, &texts.Comment})
        *text = file.Read(text->size());
    return texts;
}

} // namespace

void SpaceOut(ID3v1Texts& texts) {
    for (std::string* text : {&texts.Title, &texts.Artist, &texts.Album, &texts.Comment})
        text->resize(TextWidth, ' ');
    texts.Year.resize(YearWidth, ' ');
}

std::string ZString(std::string_view fixedLengthText) {
    return std::string(fixedLengthText.substr(0, fixedLengthText.find('\0')));
}

void ReadID3v1(MediaFile& file, const GenreTable& genres, TagRecord& tag) {
    file.Seek(file.Length() - ID3v1Length + MarkerLength);
    const ID3v1Texts texts = ReadTexts(file);
    tag.Title = Text(texts.Title);
    tag.Artist = Text(texts.Artist);
    tag.Album = Text(texts.Album);
    tag.Year = Text(texts.Year);
    tag.Comment = Text(texts.Comment);
    if (texts.Comment[28] == '\0') tag.Track = static_cast<unsigned char>(texts.Comment[29]);
    // A zero byte is what taggers write that do not ask for a genre, so it is not taken for
    // "Blues".
    const int genre = static_cast<unsigned char>(file.Read(1)[0]);
    if (genre != 0) genres.Take(genre, tag);
}

} // namespace vk
