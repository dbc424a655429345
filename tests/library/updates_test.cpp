// When scans start and stop, on a real catalogue; the server is a list of what it was asked.
#include "library/catalogue/schema.h"
#include "library/catalogue/updates.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {
namespace {

struct UpdatesTest : testing::Test, CoreFixture {
    UpdatesTest() {
        MakeEmptyCatalogue(app.File(EmptyCatalogueName));
        settings.values.MediaDir = media.Path();
        settings.values.AudioExtensions = "MP3:OGG";
        state.DBState = DBStateValue::Offline;
        state.Setup = true;
        screens.CurrentForm = "velkorandum";
    }
    void Supervise(int ticks) {
        for (int i = 0; i < ticks; ++i)
            updates.Supervise();
    }
    TempFolder media;
    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB db{{state, settings, report, reader}};
    std::vector<ScanRequest> scans;
    int stops = 0, shown = 0;
    CatalogueUpdates updates{{state, settings, screens, report, db,
                              [this](const ScanRequest& request) { scans.push_back(request); },
                              [this] { ++stops; }, [this] { ++shown; }}};
    DB_OBJ::Events server = updates.Events();
};

TEST_F(UpdatesTest, TheFirstScanOfARunStartsOnceAndIsWhole) {
    updates.Open();
    EXPECT_EQ(state.DBState, DBStateValue::Initialized);
    Supervise(3);
    ASSERT_EQ(scans.size(), 1u);
    EXPECT_TRUE(scans[0].full);
    EXPECT_EQ(scans[0].mediaDir, media.Path());
    EXPECT_EQ(scans[0].audioExtensions, "MP3:OGG");
    server.StatusChanged(DBStateValue::OnLine);
    updates.RequestScan();
    updates.RequestStop();
    Supervise(2);
    ASSERT_EQ(scans.size(), 2u);
    EXPECT_FALSE(scans[1].full);
    EXPECT_EQ(stops, 1);
}

TEST_F(UpdatesTest, NoScanStartsBeforeItsTime) {
    updates.Open();
    const auto refuse = [&](const char* why, auto set, auto undo) {
        set();
        Supervise(1);
        EXPECT_TRUE(scans.empty()) << why;
        undo();
    };
    refuse(
        "settings", [&] { screens.CurrentForm = "settings"; },
        [&] { screens.CurrentForm = "velkorandum"; });
    refuse(
        "first run", [&] { state.Setup = false; }, [&] { state.Setup = true; });
    refuse(
        "manual", [&] { settings.values.manualdb = true; },
        [&] { settings.values.manualdb = false; });
    refuse(
        "no folder", [&] { settings.values.MediaDir += "/gone"; },
        [&] { settings.values.MediaDir = media.Path(); });
    refuse(
        "state", [&] { state.DBState = DBStateValue::OnLine; },
        [&] { state.DBState = DBStateValue::CheckPoint; });
    Supervise(1);
    EXPECT_EQ(scans.size(), 1u);
}

TEST_F(UpdatesTest, ADeletedCatalogueIsMadeAnewOnRequest) {
    updates.Open();
    Supervise(1);
    server.StatusChanged(DBStateValue::OnLine);
    updates.Delete();
    EXPECT_FALSE(FileExists(app.File(CatalogueFileName)));
    EXPECT_EQ(state.DBState, DBStateValue::Disabled);
    Supervise(1);
    EXPECT_EQ(scans.size(), 1u);
    updates.OpenAnew();
    EXPECT_TRUE(FileExists(app.File(CatalogueFileName)));
    Supervise(1);
    EXPECT_EQ(scans.size(), 2u);
    updates.Delete();
    updates.RequestScan();
    Supervise(1);
    EXPECT_EQ(scans.size(), 3u);
}

TEST_F(UpdatesTest, AServerThatIsLostLeavesTheOldRows) {
    const std::string file = media.Write("a.m3u", "x");
    updates.Open();
    db.UpdateFileRow(file);
    state.DBState = DBStateValue::Rebuilding;
    EXPECT_TRUE(updates.Busy());
    server.DBError({4, "DB_UPDATE", "no such folder", true});
    server.Lost();
    EXPECT_EQ(state.DBState, DBStateValue::OnLine);
    EXPECT_NE(ReadWholeFile(log.FileName())->find("4, DB_UPDATE, no such folder"),
              std::string::npos);
    EXPECT_EQ(db.Files("SELECT Path FROM Media").size(), 1u);
}

TEST_F(UpdatesTest, ProgressIsToldToTheSettingsScreenAlone) {
    server.ShowProgress({ScanStep::ToRead, 200, "Please Wait..."});
    EXPECT_EQ(shown, 0);
    screens.CurrentForm = "settings";
    server.ShowProgress({ScanStep::ToRead, 200, "Please Wait..."});
    server.ShowProgress({ScanStep::Reading, 100, "100 reconciling db"});
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(updates.Percent(), 50);
    EXPECT_EQ(updates.Action(), "100 reconciling db");
    server.ShowProgress({ScanStep::Ready, 0, "Ready"});
    EXPECT_EQ(updates.Percent(), 90);
}

} // namespace
} // namespace vk::test
