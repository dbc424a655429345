// From a channel's name to its picture.
#include "tests/support/core_fixture.h"
#include "tuners/xm/xm_logo.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct LogoCase {
    const char* name;
    const char* category;
    const char* file; ///< the only picture there is
    bool found;
    const char* logged; ///< the stem that the log names, "" for no line
};

class XMLogo : public testing::TestWithParam<LogoCase> {};

TEST_P(XMLogo, IsFoundByItsName) {
    const LogoCase& c = GetParam();
    test::CoreFixture core;
    const std::string file = core.app.Write(std::string("COMMON/XMPICS/") + c.file, "x");
    ChannelTable table;
    table.channelTable[9].name = c.name;
    table.channelTable[9].category = c.category;
    XMLogos logos(table, core.app.Path(), core.report);
    EXPECT_EQ(logos.GetXMLogo(9), c.found ? file : logos.DefaultLogo());
    logos.GetXMLogo(9);
    std::string lines = core.app.Read("debug.log");
    const std::string line = std::string("unable to find xm logo: \\COMMON\\XMPICS\\") + c.logged +
                             ".jpg/.gif/.png/.bmp";
    const auto at = lines.find(line);
    EXPECT_EQ(at != std::string::npos, *c.logged != 0) << lines;
    if (at != std::string::npos) {
        EXPECT_EQ(lines.find(line, at + 1), std::string::npos) << "told once";
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, XMLogo,
    testing::Values(LogoCase{"Lucy's Hits!", "Rock", "lucys_hits.png", true, ""},
                    LogoCase{"XL Radio CM", "Rock", "radio.bmp", true, ""},
                    LogoCase{"Radio SP", "Rock", "radio_sp.jpg", false, "radio"},
                    LogoCase{"xl_xl_a_cm_sp", "Rock", "xl_a_cm.jpg", true, ""},
                    LogoCase{"Boston", "Traffic-Weather", "boston.jpg", false, ""},
                    LogoCase{"Boston", "Traffic-Weather", "traffic-weather.gif", true, ""},
                    LogoCase{"", "Traffic-Weather", "traffic-weather.bmp", true, ""},
                    LogoCase{"", "Rock", ".jpg", false, ""},
                    LogoCase{"Nobody", "Rock", "default.gif", false, "nobody"}));

TEST(XMLogo, TriesTheFormsOfAPictureInTheirOrder) {
    test::CoreFixture core;
    ChannelTable table;
    table.channelTable[9].name = "A";
    XMLogos logos(table, core.app.Path(), core.report);
    for (const char* name : {"a.bmp", "a.png", "a.gif", "a.jpg"}) {
        const std::string file = core.app.Write(std::string("COMMON/XMPICS/") + name, "x");
        EXPECT_EQ(logos.GetXMLogo(9), file);
    }
}

TEST(XMLogo, ANumberOutsideTheTableIsReported) {
    test::CoreFixture core;
    const ChannelTable table;
    XMLogos logos(table, core.app.Path(), core.report);
    for (const int number : {-1, 256})
        EXPECT_EQ(logos.GetXMLogo(number), logos.DefaultLogo());
    EXPECT_TRUE(core.Logged("Error occured in mdlXMShared.GetXMLogo() "));
}

} // namespace
} // namespace vk
