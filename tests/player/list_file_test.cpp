#include "player/engine/list_file.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ListFileTest : testing::Test {
    ListFileTest() {
        for (const char* name : {"a.mp3", "b.mp3", "#1 hit.mp3", "caf\xC3\xA9.mp3", "d/e.mp3"})
            folder.Write(name, "x");
        folder.MakeFolder("c.mp3");
    }
    /// The entries without the folder.
    std::vector<std::string> Names(const std::string& list) const {
        std::vector<std::string> names;
        for (const std::string& entry : ListEntries(list))
            names.push_back(
                entry.starts_with(folder.Path()) ? entry.substr(folder.Path().size() + 1) : entry);
        return names;
    }
    TempFolder folder;
};

TEST_F(ListFileTest, NumbersAListAsTheScreensDo) {
    EXPECT_THAT(Names(folder.Write("l.M3U", "\xEF\xBB\xBF#EXTM3U\r\n" + folder.File("a.mp3") +
                                                "\r\n\r\n#EXTINF:1,x\n# a title\ngone.mp3\r"
                                                " b.mp3 \nc.mp3\n#1 hit.mp3\ncaf\xE9.mp3\n"
                                                "d\\e.mp3\n1.CDA\nhttp://h/s\n# SELECT x\n")),
                ElementsAre("a.mp3", "b.mp3", "#1 hit.mp3", "caf\xC3\xA9.mp3", "d/e.mp3", "1.CDA",
                            "http://h/s"));
    EXPECT_THAT(Names(folder.File("a.mp3")), ElementsAre("a.mp3"));
    EXPECT_THAT(Names(folder.File("gone.m3u")), IsEmpty());
    EXPECT_THAT(Names(folder.File("gone.mp3")), IsEmpty());
}

TEST_F(ListFileTest, APlsGivesItsFileKeys) {
    EXPECT_THAT(Names(folder.Write("l.pls", "[playlist]\r\nNumberOfEntries=2\r\nFile1=b.mp3\r\n"
                                            "Title1=File\r\nfile2 = a.mp3\r\nFile3=\r\nFile4\r\n")),
                ElementsAre("b.mp3", "a.mp3"));
}

TEST_F(ListFileTest, ALongListIsWhole) {
    std::string many;
    for (int line = 0; line < 120'000; ++line)
        many += "mms://h\n";
    EXPECT_EQ(M3uEntries(many, "").size(), 120'000u);
}

} // namespace
} // namespace vk::test
