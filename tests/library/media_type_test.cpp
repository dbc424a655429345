#include "library/tags/media_type.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

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
} // namespace vk
