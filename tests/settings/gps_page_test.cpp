// The page for navigation, by what its rows say and do.
#include "settings/gps_page.h"
#include "tests/support/core_test.h"

namespace vk::test {

struct GPSPageTest : CoreTest {
    std::string version;
    std::vector<InstalledProgram> installed;
    Page page = GPSPage({base, [this] { return version; },
                         [] {
                             SerialList ports;
                             ports[2] = {"Stick", "/dev/ttyUSB0"};
                             return ports;
                         },
                         [this] { return installed; }});
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
    Find("ckHideTitleBar").use();
    EXPECT_EQ(settings.Read("GPS", "hideGPSTitleBar"), "true");
}

TEST_F(GPSPageTest, FilesAreChosenFromThoseThatSuit) {
    const std::string map = app.Write("maps/town.bin", "PK\3\4" + std::string(30, '-') + "PK\5\6" +
                                                           std::string(18, '-')),
                      junk = app.Write("maps/junk.bin", "junk"),
                      drive = app.Write("tours/a drive.NMEA", ""),
                      program = app.Write("my maps/Streets.exe", "");
    installed = {{"Maps", program, {"-fast", "a b"}, ""}};
    const struct {
        const char *row, *start, *shown, *key;
        std::string chosen, written;
    } cases[] = {
        {"GPSMap", ".", "x.bin", "map", junk, ""},
        {"GPSMap", ".", "x.BIN", "map", map, map},
        {"GPSMap", "maps", "x.bin", "map", "", map},
        {"GPSReceiver", "", "x.nmea", "receiver", drive, "log:" + drive},
        {"GPSReceiver", "tours", "x.LOG", "receiver", "", "log:" + drive},
        {"cmdBrowseGPSExe", "", "/bin/sh", "EXTGPSexeName", program, program},
        {"cmdBrowseGPSExe", "my maps", "/bin/sh", "EXTGPSexeName", program + " -fast \"a b\"",
         program},
    };
    for (const auto& each : cases) {
        dialogs.folders = {each.chosen};
        for (Row& row : page.rows)
            if (row.name && row.name == std::string(each.row) && row.use) row.use();
        EXPECT_EQ(settings.Read("GPS", each.key), each.written) << each.chosen;
        const std::string start = each.start == std::string(".") ? app.Path()
                                  : *each.start                  ? app.File(each.start)
                                                                 : "";
        EXPECT_EQ(dialogs.lastChoice.start, start) << each.row;
        EXPECT_TRUE(dialogs.lastChoice.accepts(each.shown)) << each.shown;
        EXPECT_FALSE(dialogs.lastChoice.accepts("picture.jpg")) << each.row;
    }
    EXPECT_EQ(dialogs.shown,
              std::vector<std::string>{"junk.bin is no map of the navigation engine"});
    EXPECT_EQ(dialogs.lastChoice.offers.at(0).value, program + " -fast \"a b\"");
    page.leave();
    EXPECT_EQ(settings.Read("GPS", "ExtGPSexeParams"), "-fast \"a b\"");
}

} // namespace vk::test
