// Maps made by the real maptool.
#include "navigation/engine/map_file.h"
#include "navigation/engine/map_maker.h"
#include "platform/files.h"
#include "platform/qt/qt_child_process.h"
#include "tests/engine/demo_town.h"
#include "tests/platform/polled.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace vk::test {
namespace {

struct MapMakerTest : testing::Test {
    MapMakerTest() {
        maker.onProgress = [this](int percent) { progress.push_back(percent); };
        maker.onEnded = [this](const std::string& failure) { ended = failure; };
    }
    std::string Make(const std::string& extract) {
        ended.reset();
        maker.Start(extract, map);
        return End();
    }
    /// The program lets others go first, so that a busy machine keeps it long.
    std::string End() const {
        const auto told = [&] { return ended.has_value(); };
        EXPECT_TRUE(Polled(told) || Polled(told) || Polled(told));
        return ended.value_or("");
    }

    TempFolder folder;
    const std::string map = folder.File("map.bin");
    MapMaker maker{[] { return std::make_unique<QtChildProcess>(); }};
    std::vector<int> progress;
    std::optional<std::string> ended;
};

TEST_F(MapMakerTest, MakesAMapAndTellsHowFarItIs) {
    EXPECT_EQ(Make(DemoTown::Get().Extract()), "");
    EXPECT_TRUE(IsMapFile(map));
    EXPECT_EQ(FileLength(map), FileLength(DemoTown::Get().Map()));
    ASSERT_GE(progress.size(), 10u);
    EXPECT_TRUE(std::ranges::is_sorted(progress));
    EXPECT_EQ(progress.back(), 100);
    EXPECT_FALSE(FolderExists(map + ".making"));
}

TEST_F(MapMakerTest, WhatMakesNoMapLeavesTheOldOne) {
    folder.Write("map.bin", "the old one");
    EXPECT_NE(Make(folder.File("missing.osm")), "");
    EXPECT_EQ(Make(folder.Write("junk.osm", "junk")), "No map could be made of this file");
    EXPECT_EQ(Make(folder.Write("junk '\"$(x).pbf", "junk")), "No map could be made of this file");
    ended.reset();
    maker.Start(DemoTown::Get().Extract(), map);
    maker.Stop();
    EXPECT_EQ(End(), "Stopped");
    EXPECT_EQ(folder.Read("map.bin"), "the old one");
    EXPECT_FALSE(FolderExists(map + ".making"));
}

} // namespace
} // namespace vk::test
