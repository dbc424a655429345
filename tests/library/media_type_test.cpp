#include "library/media_type.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

AppState WithLists() {
    AppState app;
    app.AudioExtensionList = {"MP3", "OGG", "CDA", ""};
    app.VideoExtensionList = {"AVI", "MPG", "OGG"};
    return app;
}

TEST(MediaType, IsToldByTheExtensionInAnyCase) {
    const AppState app = WithLists();
    const std::vector<std::pair<std::string, int>> cases = {
        {"/m/a.mp3", MediaAudio},
        {"/m/a.Mp3", MediaAudio},
        {"/m/a.avi", MediaVideo},
        {"/m/a.m3u", MediaPlaylist},
        {"/m/p.LST", MediaPresetList},
        {"/m/a.txt", MediaUnknown},
        {"/m/a.b.mpg", MediaVideo},
        {"/m/mp3", MediaUnknown},
        {"/m/a.mp3/x", MediaUnknown},
        {"/m/name.", MediaUnknown},
        {"", MediaUnknown},
        {".m3", MediaUnknown},
    };
    for (const auto& [path, type] : cases)
        EXPECT_EQ(GetMediaType(app, path), type) << path;
}

TEST(MediaType, TheAudioListIsSearchedFirst) {
    EXPECT_EQ(GetMediaType(WithLists(), "/m/a.ogg"), MediaAudio);
}

TEST(MediaType, TheListsAreSearchedBeforeTheListKinds) {
    AppState app = WithLists();
    app.AudioExtensionList.push_back("M3U");
    EXPECT_EQ(GetMediaType(app, "/m/a.m3u"), MediaAudio);
}

} // namespace
} // namespace vk
