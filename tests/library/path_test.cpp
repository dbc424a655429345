// What a path says: the kind of media, artist and title.
#include "library/tags/file_name_tag.h"
#include "library/tags/media_type.h"

#include <gtest/gtest.h>

namespace vk::test {
namespace {

TEST(FileNameTag, FindsArtistAndTitle) {
    const char* cases[][3] = {{"/m/05_The Ferry_-_Tides.mp3", "The Ferry", "Tides"},
                              {"/m/05The Ferry-12Tides.mp3", "The Ferry", "Tides"},
                              {"05-Ferry - 07-Rope-Walk.ogg", "Ferry", "Rope-Walk"},
                              {"/m.x/Ferry - Tides & Co.live.mp3", "Ferry", "Tides & Co.live"},
                              {"/m/5 Gulls.wav", "(Unknown Artist)", "5 Gulls"},
                              {"/m/12 Gulls.wav", "(Unknown Artist)", "Gulls"},
                              {"/m/99.mp3", "(Unknown Artist)", "99"},
                              {"/m/a-.mp3", "(Unknown Artist)", "a-"},
                              {"/m/.mp3", "(Unknown Artist)", ".mp3"},
                              {"", "(Unknown Artist)", ""},
                              {"/m/F\xE4hre - Gr\xFC\xDF.mp3", "Fähre", "Grüß"}};
    for (const auto& [path, artist, title] : cases) {
        const TagRecord tag = GetFileNameTag(path, 1);
        EXPECT_EQ(tag.Artist + "|" + tag.Title + "|" + tag.Genre,
                  std::string(artist) + "|" + title + "|");
    }
    const TagRecord film = GetFileNameTag("/m/05_The Ferry - Tides.avi", 2);
    EXPECT_EQ(film.Artist + film.Title, "05 The Ferry - Tides") << "other media: the whole name";
    EXPECT_EQ(GetFileNameTag(std::string(80, 'x') + ".m3u", 3).Title, std::string(50, 'x'));
}

TEST(MediaType, IsToldByTheExtensionInAnyCaseAndTheFirstListThatHasIt) {
    MediaExtensions app;
    app.AudioExtensionList = {"MP3", "OGG", "CDA", ""};
    app.VideoExtensionList = {"AVI", "MPG", "OGG"};
    const std::pair<std::string, int> cases[] = {
        {"/m/a.mp3", MediaAudio},      {"/m/a.Mp3", MediaAudio},   {"/m/a.ogg", MediaAudio},
        {"/m/a.avi", MediaVideo},      {"/m/a.b.mpg", MediaVideo}, {"/m/a.m3u", MediaPlaylist},
        {"/m/p.LST", MediaPresetList}, {"/m/a.txt", MediaUnknown}, {"/m/mp3", MediaUnknown},
        {"/m/a.mp3/x", MediaUnknown},  {"/m/name.", MediaUnknown}, {"", MediaUnknown},
        {".m3", MediaUnknown},
    };
    for (const auto& [path, type] : cases)
        EXPECT_EQ(GetMediaType(app, path), type) << path;
    app.AudioExtensionList.push_back("M3U");
    EXPECT_EQ(GetMediaType(app, "/m/a.m3u"), MediaAudio);
}

} // namespace
} // namespace vk::test
