#include "library/tags/file_name_tag.h"
#include "library/tags/id3v1.h"

#include <gtest/gtest.h>

#include <array>

namespace vk::test {
namespace {

TEST(FileNameTag, FindsArtistAndTitle) {
    const std::array<const char*, 3> cases[] = {
        {"/m/05_The Ferry_-_Tides.mp3", "The Ferry", "Tides"},
        {"/m/05The Ferry-12Tides.mp3", "The Ferry", "Tides"},
        {"05-Ferry - 07-Rope-Walk.ogg", "Ferry", "Rope-Walk"},
        {"/m.x/Ferry - Tides & Co.live.mp3", "Ferry", "Tides & Co.live"},
        {"/m/5 Gulls.wav", "(Unknown Artist)", "5 Gulls"},
        {"/m/12 Gulls.wav", "(Unknown Artist)", "Gulls"},
        {"/m/99.mp3", "(Unknown Artist)", "99"},
        {"/m/a-.mp3", "(Unknown Artist)", "a-"},
        {"/m/.mp3", "(Unknown Artist)", ".mp3"},
        {"", "(Unknown Artist)", ""},
        {"/m/F\xE4hre - Gr\xFC\xDF"
         "e.mp3",
         "Fähre", "Grüße"}};
    for (const auto& [path, artist, title] : cases) {
        const TagRecord tag = GetFileNameTag(path, 1);
        EXPECT_EQ(tag.Artist, artist) << path;
        EXPECT_EQ(tag.Title, title) << path;
        EXPECT_EQ(tag.Genre, "") << path;
    }
    const TagRecord film = GetFileNameTag("/m/05_The Ferry - Tides.avi", 2);
    EXPECT_EQ(film.Artist + film.Title, "05 The Ferry - Tides") << "other media: the whole name";
    EXPECT_EQ(GetFileNameTag(std::string(80, 'x') + ".m3u", 3).Title, std::string(50, 'x'));
}

TEST(FixedTexts, ArePaddedWithBlanksAndEndAtNul) {
    ID3v1Texts texts;
    texts.Title = "Tides";
    SpaceOut(texts);
    EXPECT_EQ(texts.Title, "Tides" + std::string(25, ' '));
    EXPECT_EQ(texts.Year, "    ");
    EXPECT_EQ(texts.Comment.size(), 30u);
    EXPECT_EQ(ZString(std::string_view("ab\0cd", 5)), "ab");
    EXPECT_EQ(ZString("ab"), "ab");
}

} // namespace
} // namespace vk::test
