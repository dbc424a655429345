#include "core/text.h"
#include "core/time_of_day.h"
#include "platform/paths.h"

#include <gtest/gtest.h>

namespace vk::test {
namespace {

TEST(TextTest, KeepsUtf8AndConvertsWindows1252) {
    const char* const good = "Gl\xC3\xBChen \xE2\x82\xAC \xF0\x9F\x9A\x97";
    EXPECT_EQ(ToUtf8(good), good);
    EXPECT_EQ(ToUtf8("Gl\xFChen \x80 \x93"), "Gl\xC3\xBChen \xE2\x82\xAC \xE2\x80\x9C");
    // overlong, surrogate, beyond the last plane, torn
    for (const char* bad : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "abc\xE2\x82"})
        EXPECT_NE(ToUtf8(bad), bad);
}

TEST(TextTest, CutsSplitsAndJoins) {
    EXPECT_EQ(Left("\xC3\xA4\xC3\xB6\xC3\xBC", 2), "\xC3\xA4\xC3\xB6");
    EXPECT_EQ(Left("ab", 9), "ab");
    EXPECT_EQ(LastBytes("x.mp3", 4), ".mp3");
    EXPECT_EQ(LastBytes("3", 4), "3");
    EXPECT_EQ(Join(Split("MP3::OGG", ':'), "|"), "MP3||OGG");
    EXPECT_EQ(ReplaceAll("a_b_c", "_", " "), "a b c");
}

TEST(TextTest, ParsesNumbersStrictly) {
    EXPECT_EQ(ParseInteger(" +12 "), 12);
    for (const char* bad : {"", "1 2", "12x", "99999999999999999999", "-"})
        EXPECT_FALSE(ParseInteger(bad)) << bad;
    EXPECT_EQ(ParseDecimal("0,25", ","), 0.25);
    for (const char* bad : {"", "inf", "nan", "1e3", "1.2.3"})
        EXPECT_FALSE(ParseDecimal(bad)) << bad;
}

TEST(TimeOfDayTest, ReadsAndWritesTheFormsInUse) {
    const std::pair<const char*, int> times[] = {
        {"8:00:00 AM", 480}, {"12:05:00 am", 5}, {"12:05 PM", 725}, {"21:30", 1290}};
    for (const auto& [text, minute] : times)
        EXPECT_EQ(ParseTimeOfDay(text), minute) << text;
    for (const char* bad : {"", "8", "25:00", "13:00 PM", "8:61 AM", "eight"})
        EXPECT_FALSE(ParseTimeOfDay(bad)) << bad;
    const std::pair<int, const char*> lengths[] = {
        {0, "0:00"}, {69, "1:09"}, {3600, "60:00"}, {-5, "0:00"}};
    for (const auto& [seconds, text] : lengths)
        EXPECT_EQ(SetTimeFormat(seconds), text);
}

TEST(TimeOfDayTest, DayAndNight) {
    const int eight = 480, nine = 1260;
    EXPECT_TRUE(IsDay(eight, eight, nine));
    EXPECT_TRUE(IsDay(nine - 1, eight, nine));
    EXPECT_FALSE(IsDay(nine, eight, nine));
    for (int minute = 0; minute < 1440; minute += 7)
        EXPECT_FALSE(IsDay(minute, nine, eight)) << "night all day when the times are swapped";
}

TEST(PathsTest, TakesPathsApart) {
    EXPECT_EQ(JoinPath("/a/", "/b"), "/a/b");
    EXPECT_EQ(FolderOf("/a"), "/");
    EXPECT_EQ(ExtensionOf("/a.b/c"), "");
    EXPECT_EQ(ExtensionOf("/a/c.Mp3"), "Mp3");
    EXPECT_EQ(WithoutTrailingSeparator("/a//"), "/a");
    EXPECT_EQ(WithoutTrailingSeparator("/"), "/");
}

} // namespace
} // namespace vk::test
