// xm_channels.dat: its bytes and what survives of a damaged one; the channels' pictures.
#include "library/channels/channel_file.h"
#include "library/channels/xm_logo.h"
#include "tests/support/core_test.h"

namespace vk::test {
namespace {

using testing::ElementsAre;
using namespace std::string_literals;

const DateTime Now{.year = 2026, .month = 3};

TEST(ChannelFile, HoldsTheNamedChannelsInWindows1252) {
    ChannelTable table;
    EXPECT_EQ(ParseChannels("\xFFLast\0\r\n\x0A"s + "Caf\xE9 \x80\0Rock\r\n\x05\xC3\xA9\0x\r\n"s,
                            Now, table),
              0);
    EXPECT_THAT(table.Channels(), ElementsAre(5, 10, 255));
    EXPECT_EQ(table.channelTable[10].name, "Caf\xC3\xA9 \xE2\x82\xAC");
    EXPECT_EQ(table.channelTable[5].name, "\xC3\x83\xC2\xA9") << "not to be taken for UTF-8";
    EXPECT_EQ(table.channelTable[10].lastSeen->year, 2026);
}

TEST(ChannelFile, GivesWhatCanBeHad) {
    const struct {
        std::string bytes;
        std::vector<int> channels;
        int leftOut;
    } cases[] = {
        {"", {}, 0},
        {"\x07One\0Ro"s, {7}, 0},             // torn in the category
        {"\x07One\0Rock\r\n\x08Tw"s, {7}, 1}, // torn in a name
        {"\x07One\0Rock\r\n\x08"s, {7}, 1},
        {"\x07One\0Rock\r"s, {}, 1},
        {"\0Zero\0Rock\r\n\x08Two\0Pop\r\n"s, {8}, 1},
        {"\x08  \0Pop\r\n"s, {}, 1},
        {"<!DOCTYPE html>\r\n<html>\r\n"s, {}, 2},
        {"\r\n\r\n\r\n"s, {}, 2},
        {"\x09" + std::string(5000, 'x') + "\0y\r\n\nTen\0y\r\n"s, {10}, 1},
    };
    for (const auto& [bytes, channels, leftOut] : cases) {
        ChannelTable table;
        EXPECT_EQ(ParseChannels(bytes, Now, table), leftOut) << testing::PrintToString(bytes);
        EXPECT_EQ(table.Channels(), channels) << testing::PrintToString(bytes);
    }
}

TEST(ChannelFile, MakesAListReadyOnceAnyChannelIsKnown) {
    CoreFixture core;
    ChannelTable table;
    const std::string path = core.app.File(ChannelFileName);
    const auto readyAfter = [&](const std::string& bytes) {
        core.app.Write(ChannelFileName, bytes);
        LoadChannels(path, Now, core.report, table);
        return table.channelListReady;
    };
    LoadChannels(path, Now, core.report, table);
    EXPECT_FALSE(table.channelListReady) << "no file yet";
    EXPECT_FALSE(core.Logged("xm_channels"));
    EXPECT_FALSE(readyAfter("foreign\r\nstuff"));
    EXPECT_TRUE(core.Logged("xm_channels.dat: 2 lines are no channels"));
    EXPECT_TRUE(readyAfter("\x07One\0Rock\r\n"s + std::string(1 << 20, 'x')));
    EXPECT_TRUE(core.Logged("xm_channels.dat is too long"));
}

TEST(ChannelTable, TellsItsCategories) {
    ChannelTable table;
    ParseChannels("\x09"
                  "C\0Rock\r\n\x02"
                  "A\0Talk\r\n\x05"
                  "B\0Rock\r\n\x06"
                  "D\0\r\n\x01gone\0News\r\n"s,
                  Now, table);
    table.channelTable[1].valid = false;
    EXPECT_THAT(table.Categories(), ElementsAre("Talk", "Rock"));
    EXPECT_THAT(table.ChannelsOf("Rock"), ElementsAre(5, 9));
}

TEST(XMLogo, IsFoundByTheNameOrTheCategoryAndMissedOnce) {
    const struct {
        const char *name, *category, *file; ///< the only picture there is
        bool found;
        const char* logged; ///< the stem that the log names, "" for no line
    } cases[] = {{"Lucy's Hits!", "Rock", "lucys_hits.png", true, ""},
                 {"XL Radio CM", "Rock", "radio.bmp", true, ""},
                 {"Radio SP", "Rock", "radio_sp.jpg", false, "radio"},
                 {"xl_xl_a_cm_sp", "Rock", "xl_a_cm.jpg", true, ""},
                 {"Boston", "Traffic-Weather", "boston.jpg", false, ""},
                 {"Boston", "Traffic-Weather", "traffic-weather.gif", true, ""},
                 {"", "Traffic-Weather", "traffic-weather.bmp", true, ""},
                 {"", "Rock", ".jpg", false, ""},
                 {"Nobody", "Rock", "default.gif", false, "nobody"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.name) + " " + c.file);
        CoreFixture core;
        const std::string file = core.app.Write(std::string("COMMON/XMPICS/") + c.file, "x");
        ChannelTable table;
        table.channelTable[9].name = c.name;
        table.channelTable[9].category = c.category;
        XMLogos logos(table, core.app.Path(), core.report);
        for (int time = 0; time < 2; ++time)
            EXPECT_EQ(logos.GetXMLogo(9), c.found ? file : logos.DefaultLogo());
        EXPECT_EQ(core.LinesLogged(std::string("unable to find xm logo: \\COMMON\\XMPICS\\") +
                                   c.logged + ".jpg/.gif/.png/.bmp"),
                  *c.logged ? 1 : 0);
    }
}

TEST(XMLogo, TriesTheFormsOfAPictureInTheirOrderAndReportsANumberOutsideTheTable) {
    CoreFixture core;
    ChannelTable table;
    table.channelTable[9].name = "A";
    XMLogos logos(table, core.app.Path(), core.report);
    for (const char* name : {"a.bmp", "a.png", "a.gif", "a.jpg"}) {
        const std::string file = core.app.Write(std::string("COMMON/XMPICS/") + name, "x");
        EXPECT_EQ(logos.GetXMLogo(9), file);
    }
    for (const int number : {-1, 256})
        EXPECT_EQ(logos.GetXMLogo(number), logos.DefaultLogo());
    EXPECT_TRUE(core.Logged("Error occured in mdlXMShared.GetXMLogo() "));
}

} // namespace
} // namespace vk::test
