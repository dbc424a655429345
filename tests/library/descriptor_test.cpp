// What a row stands for: its descriptor, the kind of its file, and the way there.
#include "library/browser/browse_history.h"
#include "library/descriptor.h"
#include "library/media_type.h"

#include <gmock/gmock.h>

#include <array>

namespace vk {
namespace {

TEST(Descriptor, IsSplitAtTheFirstColonAndTheFirstBar) {
    using Parts = std::array<std::string, 4>; // kind, body, argument, and all behind the kind
    const std::pair<const char*, Parts> cases[] = {
        {"FILE:/m/a.mp3", {"FILE", "/m/a.mp3", "", "/m/a.mp3"}},
        {"FILE:/m/1|2|3.mp3", {"FILE", "/m/1", "2|3.mp3", "/m/1|2|3.mp3"}},
        {"SQL:Artist|Artist='A|B: C'",
         {"SQL", "Artist", "Artist='A|B: C'", "Artist|Artist='A|B: C'"}},
        {"XM:", {"XM", "", "", ""}},
        {"XM:List|", {"XM", "List", "", "List|"}},
        {"a|b:c", {"a|b", "c", "", "c"}},
        {"", {"", "", "", ""}},
        {"no colon", {"no colon", "", "", ""}}};
    for (const auto& [text, parts] : cases) {
        const RowDescriptor split = SplitDescriptor(text);
        EXPECT_EQ((Parts{split.kind, split.body, split.argument, split.Rest()}), parts) << text;
    }
}

TEST(MediaType, IsToldByTheExtensionInAnyCaseAndTheFirstListThatHasIt) {
    AppState app;
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

TEST(BrowseHistory, SeparatesOnlyBeforeKinds) {
    std::string history;
    EXPECT_EQ(PopHistory(history), "");
    EXPECT_THAT(SplitHistory(history), testing::IsEmpty());
    const std::vector<std::string> steps = {"PATH:/m/a", "PATH:/m/a/b", "FILE:/m/a/b/c.mp3"};
    for (const std::string& step : steps)
        PushHistory(history, step);
    EXPECT_EQ(history, "PATH:/m/a/PATH:/m/a/b/FILE:/m/a/b/c.mp3");
    EXPECT_EQ(SplitHistory(history), steps);
    for (const int step : {2, 1, 0})
        EXPECT_EQ(PopHistory(history), steps[static_cast<std::size_t>(step)]);
    EXPECT_EQ(history, "");
}

} // namespace
} // namespace vk
