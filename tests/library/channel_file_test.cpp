// xm_channels.dat: its bytes, what survives of a damaged one, and the table's views.
#include "library/channels/channel_file.h"
#include "tests/support/core_fixture.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

using testing::ElementsAre;
using namespace std::string_literals;

const DateTime Now{.year = 2026, .month = 3};

void Put(ChannelTable& table, std::size_t number, const std::string& name,
         const std::string& category, bool valid = true) {
    XMChannel& channel = table.channelTable.at(number);
    channel.name = name;
    channel.category = category;
    channel.valid = valid;
}

TEST(ChannelFile, HoldsTheNamedChannelsInTheirOrder) {
    ChannelTable table;
    Put(table, 255, "Last", "");
    Put(table, 10, "Caf\xC3\xA9 \xE2\x82\xAC \xCE\xA9", "Rock\r\n");
    Put(table, 13, "B", "Rock");
    Put(table, 14, "gone", "Rock", false);
    Put(table, 15, "", "Rock");
    const std::string bytes = FormatChannels(table);
    EXPECT_EQ(bytes, "\x0A"s + "Caf\xE9 \x80 ?\0Rock\r\n"s + "\x0D"s + "B\0Rock\r\n"s + "\xFF"s +
                         "Last\0\r\n"s);
    ChannelTable again;
    EXPECT_EQ(ParseChannels(bytes, Now, again), 0);
    EXPECT_THAT(again.Channels(), ElementsAre(10, 13, 255));
    EXPECT_EQ(again.channelTable[10].name, "Caf\xC3\xA9 \xE2\x82\xAC ?");
    EXPECT_EQ(again.channelTable[10].lastSeen->year, 2026);
    EXPECT_EQ(FormatChannels(again), bytes);
    const std::string ansi = "\x05\xC3\xA9\0x\r\n"s; // not to be taken for UTF-8
    ChannelTable other;
    ParseChannels(ansi, Now, other);
    EXPECT_EQ(other.channelTable[5].name, "\xC3\x83\xC2\xA9");
    EXPECT_EQ(FormatChannels(other), ansi);
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
        {"\x09" + std::string(5000, 'x') +
             "\0y\r\n\x0A"
             "Ten\0y\r\n"s,
         {10},
         1},
    };
    for (const auto& [bytes, channels, leftOut] : cases) {
        ChannelTable table;
        EXPECT_EQ(ParseChannels(bytes, Now, table), leftOut) << testing::PrintToString(bytes);
        EXPECT_EQ(table.Channels(), channels) << testing::PrintToString(bytes);
    }
}

TEST(ChannelFile, MakesAListReadyOnceAnyChannelIsKnownAndAFailedSaveIsLogged) {
    test::CoreFixture core;
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
    table = {};
    EXPECT_FALSE(SaveChannels(core.app.File("no/such/folder.dat"), core.report, table));
    EXPECT_TRUE(core.Logged("could not write"));
    for (const char* name : {"Preview", "Pre"}) {
        Put(table, 1, name, "News");
        ASSERT_TRUE(SaveChannels(path, core.report, table));
    }
    EXPECT_EQ(core.app.Read(ChannelFileName), "\x01Pre\0News\r\n"s);
}

TEST(ChannelTable, TellsItsCategories) {
    ChannelTable table;
    Put(table, 9, "C", "Rock");
    Put(table, 2, "A", "Talk");
    Put(table, 5, "B", "Rock");
    Put(table, 6, "D", "");
    Put(table, 1, "gone", "News", false);
    EXPECT_THAT(table.Categories(), ElementsAre("Talk", "Rock"));
    EXPECT_THAT(table.ChannelsOf("Rock"), ElementsAre(5, 9));
}

} // namespace
} // namespace vk
