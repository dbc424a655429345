#include "player/engine/list_file.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ParseM3u, TakesEveryLineAndLeavesCommentsOut) {
    EXPECT_THAT(
        ParseM3u("\xEF\xBB\xBF#EXTM3U\r\n/a.mp3\r\n\r\n#EXTINF:1,x\n/b.mp3\r/c d.mp3", "/l"),
        ElementsAre("/a.mp3", "/b.mp3", "/c d.mp3"));
    EXPECT_THAT(ParseM3u("x.mp3\n../y.mp3\nhttp://h/z\n", "/music"),
                ElementsAre("/music/x.mp3", "/music/../y.mp3", "http://h/z"));
    EXPECT_THAT(ParseM3u("/caf\xE9.mp3\n b \n", "/l"), ElementsAre("/caf\xE9.mp3", "/l/ b "));
    EXPECT_THAT(ParseM3u(std::string_view("/a\0/b\n", 6), ""), ElementsAre("/a", "/b"));
}

TEST(ParseM3u, StopsAtTheLimit) {
    std::string many;
    for (std::size_t line = 0; line < ListEntryLimit + 5; ++line)
        many += "/a\n";
    EXPECT_EQ(ParseM3u(many, "").size(), ListEntryLimit);
}

TEST(ParsePls, TakesTheFileKeys) {
    EXPECT_THAT(ParsePls("[playlist]\r\nNumberOfEntries=2\r\nFile1=/a.mp3\r\nTitle1=File\r\n"
                         "file2 = b=c.mp3\r\nFile3=\r\nFile4\r\n",
                         "/l"),
                ElementsAre("/a.mp3", "/l/b=c.mp3"));
}

TEST(ListEntries, LeavesMissingFilesOutSoThatNumbersMatchTheScreens) {
    TempFolder folder;
    folder.Write("a.mp3", "x");
    folder.Write("b.mp3", "x");
    folder.MakeFolder("c.mp3");
    const std::string list =
        folder.Write("l.M3U", "a.mp3\ngone.mp3\nc.mp3\nb.mp3\n1.CDA\nhttp://h/s\n");
    EXPECT_THAT(ListEntries(list), ElementsAre(folder.File("a.mp3"), folder.File("b.mp3"),
                                               folder.File("1.CDA"), "http://h/s"));
    EXPECT_THAT(ListEntries(folder.Write("l.pls", "File1=b.mp3")),
                ElementsAre(folder.File("b.mp3")));
    EXPECT_THAT(ListEntries(folder.File("a.mp3")), ElementsAre(folder.File("a.mp3")));
    EXPECT_THAT(ListEntries(folder.File("gone.m3u")), IsEmpty());
    EXPECT_THAT(ListEntries(folder.File("gone.mp3")), IsEmpty());
}

} // namespace
} // namespace vk::test
