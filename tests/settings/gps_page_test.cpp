// The page for navigation, by what its rows say and do.
#include "settings/gps_page.h"
#include "tests/support/core_test.h"

namespace vk::test {

struct GPSPageTest : CoreTest {
    std::string version;
    Page page = GPSPage({base, [this] { return version; },
                         [] {
                             SerialList ports;
                             ports[2] = {"Stick", "/dev/ttyUSB0"};
                             return ports;
                         }});
    GPSPageTest() {
        settings.LoadSettings();
        page.enter();
    }
    Row& Find(const std::string& name) {
        for (Row& row : page.rows)
            if (row.name && row.name == name) return row;
        ADD_FAILURE() << name;
        return page.rows.front();
    }
};

TEST_F(GPSPageTest, WhatShowsTheMapIsWrittenWhenThePageIsLeft) {
    EXPECT_FALSE(Find("cmdBrowseGPSExe").usable() || Find("OP2DMaps").usable());
    Find("opGPSExt").use();
    EXPECT_TRUE(Find("cmdBrowseGPSExe").usable());
    dialogs.inputs = {"-fast"};
    Find("txGPSParams").use();
    Find("opGPSDest").use();
    EXPECT_TRUE(Find("opGPSDest").lit() && !Find("opGPSExt").lit());
    Find("OP2DMaps").use();
    EXPECT_EQ(settings.values.GPSModule, 0);
    page.leave();
    EXPECT_EQ(settings.Read("GPS", "GPSModule") + settings.Read("GPS", "ExtGPSexeParams"),
              "1-fast");
    EXPECT_FALSE(settings.values.Use3Dmaps);
    page.enter();
    Find("cmdClear").use();
    page.leave();
    EXPECT_EQ(settings.Read("GPS", "ExtGPSexeParams"), "");
}

TEST_F(GPSPageTest, TheRestActsAtOnce) {
    EXPECT_EQ(Find("lblDetected").text(), "Destinator: not found");
    version = "2.1";
    EXPECT_EQ(Find("lblDetected").text(), "Destinator Version: 2.1\nDetected");
    for (const char* receiver : {"gpsd", "/dev/ttyUSB0", ""}) {
        for (Row& row : page.rows)
            if (row.name == std::string("GPSReceiver") && row.ends.size() == 2) row.ends[1].use();
        EXPECT_EQ(settings.Read("GPS", "receiver"), receiver);
    }
    const std::string program = app.Write("Streets.exe", "");
    dialogs.inputs = {"/nowhere", program};
    for (int i = 0; i < 2; ++i)
        Find("cmdBrowseGPSExe").use();
    EXPECT_EQ(settings.Read("GPS", "EXTGPSexeName"), program);
    EXPECT_EQ(dialogs.shown[1], "There is no file /nowhere");
    Find("ckHideTitleBar").use();
    EXPECT_EQ(settings.Read("GPS", "hideGPSTitleBar"), "true");
}

} // namespace vk::test
