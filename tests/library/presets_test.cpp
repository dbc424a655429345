// presets.lst: which lines count, and what a change leaves of the others.
#include "core/error_report.h"
#include "library/lists/channel_list.h"
#include "library/lists/presets.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

TEST(Presets, ALineNeedsAColonAndFourCharacters) {
    std::vector<std::string> shown;
    const char* text =
        "\xEF\xBB\xBF 96.5 : Rock: FM\r\n\r\nnothing\r\n9:a\n  9:ab  \r95.1:Caf\xE9\n1:2";
    for (const Preset& preset : ParsePresets(text))
        shown.push_back(preset.frequency + "=" + preset.label);
    EXPECT_THAT(shown, ElementsAre("96.5= Rock: FM", "9=ab", "95.1=Caf\xC3\xA9"));
}

TEST(Presets, AChangeMeetsTheLinesOfThatFrequencyAlone) {
    const struct {
        const char *text, *frequency, *saved, *deleted;
    } cases[] = {
        {"96.55:A\r\n96.5:B\r\n", "96.5", "96.55:A\r\n96.5:new\r\n", "96.55:A\r\n"},
        {" 96.5 :A\n96.5:B", "96.5", "96.5:new\r\n96.5:new\r\n", ""},
        {"96.5\r\n\r\nsome note\r\n1:96.5", "96.5", "96.5\r\n\r\nsome note\r\n1:96.5\r\n",
         "96.5\r\n\r\nsome note\r\n1:96.5\r\n"},
        {"\xEF\xBB\xBF"
         "96.5:A\r\xEF\xBB\xBF"
         "95.1:B\xE9\n",
         "95.1",
         "\xEF\xBB\xBF"
         "96.5:A\r\n95.1:new\r\n",
         "\xEF\xBB\xBF"
         "96.5:A\r\n"},
        {"", "96.5", "", ""},
    };
    for (const auto& [text, frequency, saved, deleted] : cases) {
        EXPECT_EQ(WithPreset(text, frequency, "n\r\new"), saved);
        EXPECT_EQ(WithoutPreset(text, frequency), deleted);
    }
}

TEST(Presets, AFileThatCannotBeReadWholeIsLeftAlone) {
    const test::TempFolder folder;
    EXPECT_THROW(SavePreset(folder.File("none.lst"), "96.5", "x"), Error);
    const std::string huge = "96.5:A\r\n" + std::string(2 << 20, 'x');
    const std::string path = folder.Write("huge.lst", huge);
    EXPECT_THROW(DeleteFreq(path, "96.5"), Error);
    EXPECT_EQ(folder.Read("huge.lst"), huge);
    const std::string wide = folder.Write("wide.lst", "\xFF\xFE"
                                                      "9\0:\0a\0\xE9\0\r\0\n\0"s);
    EXPECT_EQ(ReadPresetFile(wide).at(0).label, "a\xC3\xA9");
    SavePreset(wide, "9", "new");
    EXPECT_EQ(folder.Read("wide.lst"), "9:new\r\n");
}

TEST(ChannelList, HoldsANumberALine) {
    const test::TempFolder folder;
    const std::string path =
        folder.Write("a.xcl", "5\r\n 200 \nx\n0\n256\n-3\n\n5\r7.5\n99999999999");
    EXPECT_THAT(ReadChannelList(path), ElementsAre(5, 200, 5));
    ASSERT_TRUE(WriteChannelList(path, {9, 10}));
    EXPECT_EQ(folder.Read("a.xcl"), "9\r\n10\r\n");
    EXPECT_THROW(ReadChannelList(folder.Path()), Error);
}

} // namespace
} // namespace vk
