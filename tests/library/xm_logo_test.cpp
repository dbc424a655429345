// From a channel's name to its picture.
#include "library/channels/xm_logo.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(XMLogo, IsFoundByTheNameOrTheCategoryAndMissedOnce) {
    const struct {
        const char *name, *category;
        const char* file; ///< the only picture there is
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
        test::CoreFixture core;
        const std::string file = core.app.Write(std::string("COMMON/XMPICS/") + c.file, "x");
        ChannelTable table;
        table.channelTable[9].name = c.name;
        table.channelTable[9].category = c.category;
        XMLogos logos(table, core.app.Path(), core.report);
        for (int time = 0; time < 2; ++time)
            EXPECT_EQ(logos.GetXMLogo(9), c.found ? file : logos.DefaultLogo());
        const std::string lines = core.app.Read("debug.log");
        const std::string line = std::string("unable to find xm logo: \\COMMON\\XMPICS\\") +
                                 c.logged + ".jpg/.gif/.png/.bmp";
        EXPECT_EQ(lines.find(line) != std::string::npos, *c.logged != 0) << lines;
        EXPECT_EQ(lines.find(line), lines.rfind(line)) << "told once";
    }
}

TEST(XMLogo, TriesTheFormsOfAPictureInTheirOrderAndReportsANumberOutsideTheTable) {
    test::CoreFixture core;
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
} // namespace vk
