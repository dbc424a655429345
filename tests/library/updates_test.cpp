// When scans start and stop, on a real catalogue; the server is a list of what it was asked.
#include "library/catalogue/updates.h"
#include "tests/library/catalogue_fixture.h"

namespace vk::test {
namespace {

struct UpdatesTest : CatalogueFixture {
    UpdatesTest() {
        settings.values.AudioExtensions = "MP3:OGG";
        state.DBState = DBStateValue::Offline;
        state.Setup = true;
        screens.CurrentForm = "velkorandum";
        updates.Open();
    }
    void Supervise(int ticks) {
        for (int i = 0; i < ticks; ++i)
            updates.Supervise();
    }
    void Fail() { server.DBError({4, "DB_UPDATE", "no such folder", true}); }
    void End() { server.StatusChanged(DBStateValue::OnLine); }
    std::vector<ScanRequest> scans;
    int stops = 0, shown = 0;
    CatalogueUpdates updates{{state, settings, screens, report, db,
                              [this](const ScanRequest& request) { scans.push_back(request); },
                              [this] { ++stops; }, [this] { ++shown; }}};
    DB_OBJ::Events server = updates.Events();
};

TEST_F(UpdatesTest, TheFirstScanOfARunStartsOnceAndIsWhole) {
    EXPECT_EQ(state.DBState, DBStateValue::Initialized);
    Supervise(3);
    ASSERT_EQ(scans.size(), 1u);
    EXPECT_TRUE(scans[0].full);
    EXPECT_EQ(scans[0].mediaDir, media.Path());
    EXPECT_EQ(scans[0].audioExtensions, "MP3:OGG");
    End();
    EXPECT_FALSE(updates.Busy());
    updates.RequestScan();
    EXPECT_TRUE(updates.Busy()) << "it is about to start";
    updates.RequestStop();
    Supervise(2);
    EXPECT_TRUE(updates.Busy());
    updates.RequestScan();
    Supervise(1);
    ASSERT_EQ(scans.size(), 2u);
    EXPECT_FALSE(scans[1].full);
    EXPECT_EQ(stops, 1);
    End();
    Supervise(2);
    EXPECT_EQ(scans.size(), 3u) << "wanted while the server worked";
}

TEST_F(UpdatesTest, NoScanStartsBeforeItsTime) {
    const auto refuse = [&](auto& value, auto bad) {
        const auto good = std::exchange(value, bad);
        Supervise(1);
        EXPECT_TRUE(scans.empty()) << testing::PrintToString(bad);
        value = good;
    };
    refuse(screens.CurrentForm, "settings");
    refuse(state.Setup, false);
    refuse(settings.values.manualdb, true);
    refuse(settings.values.MediaDir, media.File("gone"));
    refuse(state.DBState, DBStateValue::OnLine);
    Supervise(1);
    EXPECT_EQ(scans.size(), 1u);
}

TEST_F(UpdatesTest, ADeletedCatalogueIsMadeAnewOnRequest) {
    Supervise(1);
    End();
    updates.Delete();
    EXPECT_FALSE(FileExists(app.File(CatalogueFileName)));
    EXPECT_EQ(state.DBState, DBStateValue::Disabled);
    Supervise(1);
    EXPECT_EQ(scans.size(), 1u);
    updates.OpenAnew();
    EXPECT_TRUE(FileExists(app.File(CatalogueFileName)));
    Supervise(1);
    EXPECT_EQ(scans.size(), 2u);
    End();
    updates.Delete();
    updates.RequestScan();
    Supervise(1);
    EXPECT_EQ(scans.size(), 3u);
}

TEST_F(UpdatesTest, AServerThatIsLostIsStartedOnceMoreUnlessTheUserStoppedIt) {
    const auto lose = [&] {
        server.StatusChanged(DBStateValue::Rebuilding);
        server.Lost();
        Supervise(2);
        return scans.size();
    };
    Supervise(1);
    updates.RequestStop();
    EXPECT_EQ(lose(), 1u);
    EXPECT_EQ(state.DBState, DBStateValue::Disabled);
    updates.RequestScan();
    Supervise(1);
    for (const std::size_t begun : {3u, 3u})
        EXPECT_EQ(lose(), begun);
}

TEST_F(UpdatesTest, RowsOfAnotherFolderWaitForAnUpdateOrForTheOldFolder) {
    settings.values.manualdb = true;
    db.InitDB(false);
    db.UpdateFileRow(media.Write("a.m3u", "x"));
    const std::string here = std::exchange(settings.values.MediaDir, app.Path());
    Supervise(1);
    EXPECT_EQ(state.DBState, DBStateValue::Initialized);
    settings.values.MediaDir = here;
    Supervise(1);
    EXPECT_EQ(state.DBState, DBStateValue::OnLine);
    db.Close();
    End();
    EXPECT_EQ(state.DBState, DBStateValue::Disabled) << "no catalogue, whatever the server says";
}

TEST_F(UpdatesTest, AServerThatIsLostLeavesTheOldRows) {
    db.UpdateFileRow(media.Write("a.m3u", "x"));
    state.DBState = DBStateValue::Rebuilding;
    EXPECT_TRUE(updates.Busy());
    Fail();
    server.Lost();
    Supervise(1);
    server.Lost();
    EXPECT_EQ(updates.Action(), "The last update failed: DB_UPDATE has ended");
    EXPECT_EQ(state.DBState, DBStateValue::OnLine);
    EXPECT_TRUE(Logged("4, DB_UPDATE, no such folder"));
    EXPECT_EQ(db.Files("SELECT Path FROM Media").size(), 1u);
}

TEST_F(UpdatesTest, ProgressIsToldToTheSettingsScreenAlone) {
    updates.RequestScan();
    EXPECT_EQ(updates.Action(), "Please Wait...");
    Supervise(1);
    state.quitAttempts = 2;
    server.StatusChanged(DBStateValue::Rebuilding);
    EXPECT_EQ(state.quitAttempts, 0);
    server.ShowProgress({ScanStep::Counting, 512, "Getting File Count"});
    EXPECT_EQ(updates.Action(), "Getting File Count   512");
    server.ShowProgress({ScanStep::ToRead, 200, "Please Wait..."});
    EXPECT_EQ(shown, 0);
    screens.CurrentForm = "settings";
    server.ShowProgress({ScanStep::Reading, 100, "100 reconciling db"});
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(updates.Percent(), 50);
    EXPECT_EQ(updates.Action(), "100 reconciling db   of 200");
    server.ShowProgress({ScanStep::Ready, 0, "Ready"});
    EXPECT_EQ(updates.Percent(), 90);
    Fail();
    End();
    EXPECT_EQ(updates.Action(), "The last update failed: no such folder");
    updates.RequestScan();
    Supervise(1);
    End();
    EXPECT_EQ(updates.Action(), "");
    EXPECT_EQ(updates.Percent(), 0);
}

} // namespace
} // namespace vk::test
