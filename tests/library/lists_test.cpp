// Lists of tracks, radio presets and channels.
#include "core/error_report.h"
#include "core/text.h"
#include "library/lists/channel_list.h"
#include "library/lists/list_file.h"
#include "library/lists/presets.h"
#include "library/sort.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace vk::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre, testing::IsEmpty;

struct Lists : testing::Test {
    TempFolder folder;
};

TEST_F(Lists, LinesEndInAnyWayAndMarksAndBlanksAreDropped) {
    EXPECT_THAT(ListLines("\xEF\xBB\xBFone\r\ntwo\rthree\n\n\r\n  four \nfive"),
                ElementsAre("one", "two", "three", "four", "five"));
    for (const char* empty : {"", "\xEF\xBB\xBF", "\r\r\n\n"})
        EXPECT_THAT(ListLines(empty), IsEmpty());
}

// The bytes of a text in UTF-16.
std::string Utf16(std::u16string_view text, bool big) {
    std::string bytes;
    for (const char16_t unit : text)
        for (const bool high : {big, !big})
            bytes.push_back(static_cast<char>(high ? unit >> 8 : unit & 0xFF));
    return bytes;
}

TEST_F(Lists, ListsInUtf16AreReadWithAndWithoutAMark) {
    for (const bool big : {false, true})
        for (const auto* mark : {u"\uFEFF", u""}) {
            const std::u16string text = std::u16string(mark) +
                                        u"C:\\a b.mp3\r\n/caf\u00E9.mp3\r\n" +
                                        u"/m/\u97F3\u697D/\U0001F3B5.mp3\n";
            EXPECT_THAT(ListLines(Utf16(text, big)),
                        ElementsAre("C:\\a b.mp3", "/caf\xC3\xA9.mp3",
                                    "/m/\xE9\x9F\xB3\xE6\xA5\xBD/\xF0\x9F\x8E\xB5.mp3"));
        }
    EXPECT_THAT(ListLines("\xFF\xFE\x3C\xD8x\0\x0A\0\xB5\xDF/\0!"s),
                ElementsAre("\xEF\xBF\xBDx", "\xEF\xBF\xBD/"))
        << "halves of pairs and an odd byte";
    for (const std::string& mark : {"\xFF\xFE"s, "\xFE\xFF"s, "\xFF\xFE\x0A"s})
        EXPECT_THAT(ListLines(mark), IsEmpty());
    EXPECT_THAT(ListLines("one\0two\nthree"s), ElementsAre("one\0two"s, "three"))
        << "a stray NUL is no sign of UTF-16";
}

TEST_F(Lists, EntriesAreAbsoluteRelativeOrWrittenElsewhere) {
    const std::string song = folder.Write("sub/song.mp3", "x");
    const std::string accent = folder.Write("caf\xC3\xA9.mp3", "x");
    const std::string raw = folder.Write("raw\xE9.mp3", "x");
    const std::string& here = folder.Path();
    EXPECT_EQ(ResolveListEntry(song, "/nowhere"), song);
    EXPECT_EQ(ResolveListEntry("sub/song.mp3", here), song);
    EXPECT_EQ(ResolveListEntry("sub\\song.mp3", here), song);
    EXPECT_EQ(ResolveListEntry("caf\xE9.mp3", here), accent);
    EXPECT_EQ(ResolveListEntry("raw\xE9.mp3", here), raw);
    for (const std::string& line : {"missing.mp3"s, "#EXTM3U"s, "http://a/sub/song.mp3"s, "."s,
                                    "sub/song.mp3\0tail"s, std::string(100000, 'a')})
        EXPECT_EQ(ResolveListEntry(line, here), "") << line.substr(0, 40);
}

TEST_F(Lists, EntriesOfOtherSystemsAreFoundInAnyCaseAndHoweverAccentsAreWritten) {
    const std::string& here = folder.Path();
    const std::string song = folder.Write("Bj\u00F6rk/1 100%20/J\u00F3ga #1.mp3", "x");
    const std::string kana = folder.Write("\u304C.mp3", "x"),
                      hangul = folder.Write("\uD55C.mp3", "x");
    folder.Write("B.mp3", "x");
    folder.Write("b.MP3", "x");
    EntryResolver resolver(here);
    const std::string decomposed = "bjo\u0308RK/1 100%20/jo\u0301ga #1.MP3",
                      encoded = "BJ%C3%96RK/1%20100%2520/J%c3%b3ga%20%231.mp3";
    for (const std::string& line :
         {song, decomposed, ReplaceAll(decomposed, "/", "\\"), "./bjo\u0308rk/../" + decomposed,
          encoded, "file://" + here + "/" + encoded, "FILE:" + here + "/" + encoded,
          "file://localhost" + here + "/" + encoded, here + "/" + decomposed})
        EXPECT_EQ(resolver.Resolve(line), song) << line;
    EXPECT_EQ(resolver.Resolve("\u304B\u3099.mp3"), kana);
    EXPECT_EQ(resolver.Resolve("\u1112\u1161\u11AB.mp3"), hangul);
    EXPECT_EQ(resolver.Resolve("B.MP3"), folder.File("B.mp3"));
    EXPECT_EQ(ResolveListEntry(decomposed, here), "") << "only what costs no look into folders";
    for (const std::string& line : {"#b.mp3"s, "http://host/B.MP3"s, "bjork"s, "%"s, "%00.mp3"s,
                                    "file:"s, "../"s + std::string(5000, '/')})
        EXPECT_EQ(resolver.Resolve(line), "") << line;
}

TEST_F(Lists, AnyBytesAreReadOrRefused) {
    for (const std::string& path : {folder.File("none.m3u"), folder.Path()})
        EXPECT_THROW(ReadListText(path), Error);
    std::mt19937 random(7);
    std::string noise(20000, '\0');
    std::ranges::generate(noise, [&] { return static_cast<char>(random() & 0xFF); });
    for (const std::string& line : ListLines(ReadListText(folder.Write("noise.m3u", noise))))
        EXPECT_EQ(ResolveListEntry(line, folder.Path()), "");
    int visits = 0;
    EXPECT_FALSE(ForEachListLine("a\nb\nc", [&](const std::string&) { return ++visits < 2; }));
    EXPECT_EQ(visits, 2);
}

TEST_F(Lists, WhatIsWrittenReadsBackWithItsCommentOnTop) {
    const std::string song = folder.Write("a song.mp3", "x");
    ASSERT_TRUE(WriteListFile(folder.File("l.m3u"), "Rock", {song, song}));
    EXPECT_EQ(folder.Read("l.m3u"), "# Rock\r\n" + song + "\r\n" + song + "\r\n");
    ASSERT_TRUE(WriteListFile(folder.File("l.m3u"), "", {}));
    EXPECT_EQ(folder.Read("l.m3u"), "");
    EXPECT_FALSE(WriteListFile(folder.File("no/folder.m3u"), "", {song}));
    std::string reason;
    for (const char* name : {"/m/two\nlines.mp3", "/m/\r.mp3"})
        EXPECT_FALSE(WriteListFile(folder.File("l.m3u"), "", {song, name}, &reason)) << name;
    EXPECT_EQ(reason, "a line end in the name \r.mp3");
    EXPECT_EQ(folder.Read("l.m3u"), "") << "the old list stays";
}

TEST(Sort, OrdersArraysOfEveryLengthByPlainComparison) {
    std::mt19937 random(1);
    std::vector<std::string> names = {"b", "a", "B", "10", "", "a b", "\xC3\xA9", "a"};
    for (; names.size() < 70; names.push_back(std::to_string(random() % 50))) {
        std::vector<std::string> sorted = names;
        ShellSortVariantArray(sorted);
        EXPECT_TRUE(std::ranges::is_sorted(sorted));
        EXPECT_TRUE(std::ranges::is_permutation(sorted, names));
    }
}

TEST(Presets, ALineNeedsAColonAndFourCharacters) {
    std::vector<std::string> shown;
    const char* text =
        "\xEF\xBB\xBF 96.5 : Rock: FM\r\n\r\nnothing\r\n9:a\n  9:ab  \r95.1:Caf\xE9\n1:2";
    for (const Preset& preset : ParsePresets(text))
        shown.push_back(preset.frequency + "=" + preset.label);
    EXPECT_THAT(shown, ElementsAre("96.5= Rock: FM", "9=ab", "95.1=Caf\xC3\xA9"));
}

TEST(Presets, AChangeMeetsTheLinesOfThatFrequencyAlone) {
    const char* cases[][4] = {
        {"96.55:A\r\n96.5:B\r\n", "96.5", "96.55:A\r\n96.5:new\r\n", "96.55:A\r\n"},
        {" 96.5 :A\n96.5:B", "96.5", "96.5:new\r\n96.5:new\r\n", ""},
        {"96.5\r\n\r\nnote\r\n1:96.5", "96.5", "96.5\r\n\r\nnote\r\n1:96.5\r\n",
         "96.5\r\n\r\nnote\r\n1:96.5\r\n"},
        {"\xEF\xBB\xBF 6.5:A\r\xEF\xBB\xBF 5.1:B\xE9\n", "5.1", "\xEF\xBB\xBF 6.5:A\r\n5.1:new\r\n",
         "\xEF\xBB\xBF 6.5:A\r\n"},
        {"", "96.5", "", ""},
    };
    for (const auto& [text, frequency, saved, deleted] : cases) {
        EXPECT_EQ(WithPreset(text, frequency, "n\r\new"), saved);
        EXPECT_EQ(WithoutPreset(text, frequency), deleted);
    }
}

TEST_F(Lists, AFileOfPresetsThatCannotBeReadWholeIsLeftAlone) {
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

TEST_F(Lists, AListOfChannelsHoldsANumberALine) {
    const std::string path =
        folder.Write("a.xcl", "5\r\n 200 \nx\n0\n256\n-3\n\n5\r7.5\n99999999999");
    EXPECT_THAT(ReadChannelList(path), ElementsAre(5, 200, 5));
    ASSERT_TRUE(WriteChannelList(path, {9, 10}));
    EXPECT_EQ(folder.Read("a.xcl"), "9\r\n10\r\n");
    EXPECT_THROW(ReadChannelList(folder.Path()), Error);
}

} // namespace
} // namespace vk::test
