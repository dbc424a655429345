// What choosing rows does: playing, walking, lists, history.
#include "library/browser/browse_history.h"
#include "tests/library/browser_fixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

class RunOk : public test::BrowserTest {};

TEST_F(RunOk, AnAudioFileIsHandedOverWithAllOfItsKind) {
    Media("rock/a.mp3");
    Media("rock/b.avi");
    Media("rock/c.mp3");
    browser().ReShow();
    Choose("rock");
    Choose("(Unknown Artist) - c");
    EXPECT_EQ(core.app.Read("vk_audio.m3u"), media + "/rock/a.mp3\r\n" + media + "/rock/c.mp3\r\n");
    EXPECT_EQ(audio.PlayMode, PlayAudio);
    EXPECT_EQ(audio.ListFile, core.app.File("vk_audio.m3u"));
    EXPECT_EQ(audio.TrackToSelect, 2);
    EXPECT_TRUE(audio.bStartPlaying);
    EXPECT_EQ(audio.ListTitle, "rock");
    EXPECT_EQ(audio.VolumeSerial, 0);
    EXPECT_EQ(player.Count("ReShow"), 1);
    EXPECT_FALSE(core.state.ListBusy);
}

TEST_F(RunOk, ListsFromTheCatalogueBearTheFoldersName) {
    test::FakeCatalogue known;
    known.files = {{"/rock/a.mp3", "Band", "Song"}};
    catalogue = &known;
    Media("rock/a.mp3");
    browser().ReShow();
    Choose("rock");
    Choose("Band - Song");
    EXPECT_EQ(core.app.Read("vk_audio.m3u"), "#  rock\r\n" + media + "/rock/a.mp3\r\n");
}

TEST_F(RunOk, FromADiscTheListBearsItsLabelAndSerial) {
    InsertDisc();
    disk.Write("cd/a.mp3", "x");
    state.CurrentPath = cd;
    state.FromPlayer = true;
    browser().ReShow();
    Choose("(Unknown Artist) - a");
    EXPECT_EQ(audio.ListTitle, "DISC_1");
    EXPECT_EQ(audio.VolumeSerial, 4711);
    EXPECT_EQ(player.Count("ReDisplay"), 1) << "the player was left running";
    EXPECT_FALSE(state.FromPlayer);
}

TEST_F(RunOk, ADiscThatWasTakenOutLeadsToTheTop) {
    disk.Write("cd/a.mp3", "x");
    disk.Write("cd/b.avi", "x");
    const auto chooseFromMissingDisc = [&](const std::string& row) {
        InsertDisc();
        state.ListMode = ListFromAudio;
        state.CurrentPath = cd;
        browser().ReShow();
        core.volumes.ready.clear();
        Choose(row);
        EXPECT_EQ(state.CurrentPath, media) << row;
        EXPECT_EQ(state.ListMode, ListFromMenu) << row;
    };
    chooseFromMissingDisc("(Unknown Artist) - a");
    chooseFromMissingDisc("b");
    disk.MakeFolder("cd/VIDEO_TS");
    chooseFromMissingDisc("DVD Video: DISC_1");
    EXPECT_EQ(player.Count("ReShow"), 0);
}

TEST_F(RunOk, WithoutAMoviePlayerFilmsSaySoAndStay) {
    Media("a.avi");
    Media("b.mp3");
    Media("c.mpg");
    browser().ReShow();
    Choose("c");
    EXPECT_EQ(core.app.Read("vk_video.m3u"), media + "/a.avi\r\n" + media + "/c.mpg\r\n");
    EXPECT_EQ(view.loading, "The movie player is not available.");
    EXPECT_EQ(core.screens.CurrentForm, "playlists");
    EXPECT_EQ(audioStopped, 0);
    core.clock.Advance(4900);
    EXPECT_NE(view.loading, "");
    core.clock.Advance(1200);
    EXPECT_EQ(view.loading, "") << "the notice goes by itself";
}

TEST_F(RunOk, AMoviePlayerGetsListPositionAndDisc) {
    test::RecordingScreen movie;
    core.screens.Add("playmovie", movie);
    audio.PlayMode = PlayAudio;
    Media("a.avi");
    Media("c.mpg");
    browser().ReShow();
    Choose("c");
    EXPECT_EQ(movie.Count("ReShow"), 1);
    EXPECT_EQ(video.ListFile, core.app.File("vk_video.m3u"));
    EXPECT_EQ(video.MovieToSelect, 2);
    EXPECT_EQ(video.VolumeSerial, 0);
    EXPECT_FALSE(video.PlayDVD);
    EXPECT_EQ(audioStopped, 1);
    InsertDisc();
    disk.MakeFolder("cd/VIDEO_TS");
    state.CurrentPath = cd;
    browser().ReShow();
    Choose("DVD Video: DISC_1");
    EXPECT_TRUE(video.PlayDVD);
    EXPECT_EQ(video.VolumeSerial, 4711);
    EXPECT_EQ(movie.Count("ReShow"), 2);
}

TEST_F(RunOk, AListThatCannotBeWrittenIsSaid) {
    Media("a.mp3");
    browser().ReShow();
    std::filesystem::create_directories(core.app.File("vk_audio.m3u"));
    Choose("(Unknown Artist) - a");
    EXPECT_EQ(view.loading, "The play list could not be written.");
    EXPECT_EQ(audio.PlayMode, PlayNone);
    EXPECT_EQ(player.Count("ReShow"), 0);
}

TEST_F(RunOk, NamesThatALineCannotHoldAreLeftOutOfTheList) {
    Media("a\nb.mp3");
    Media("c|d.mp3");
    browser().ReShow();
    Choose("(Unknown Artist) - c|d");
    EXPECT_EQ(core.app.Read("vk_audio.m3u"), media + "/c|d.mp3\r\n");
    EXPECT_EQ(audio.TrackToSelect, 1);
}

TEST_F(RunOk, APlaylistIsReadUnderItsOwnName) {
    core.settings.values.numberedList = true;
    Media("a.mp3");
    Media("sub/One - Song.mp3");
    Media("z.m3u", "#EXTM3U\nsub/One - Song.mp3\nmissing.mp3\n" + media + "/a.mp3");
    core.volumes.drives.clear();
    browser().ReShow();
    Choose("2 - z");
    EXPECT_EQ(view.title, "z");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "1 - One - Song", "2 - (Unknown Artist) - a"));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + media, "FILE:" + media + "/sub/One - Song.mp3",
                                           "FILE:" + media + "/a.mp3"));
}

TEST_F(RunOk, APlaylistWithoutFilesShowsANotice) {
    Media("z.m3u", "#EXTM3U\n# nothing here\n");
    browser().ReShow();
    Choose("z");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Filenames in the Playlist>"));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + media, ""));
    Choose("<No Valid Filenames in the Playlist>");
    EXPECT_EQ(view.title, "z") << "a notice is inert";
    EXPECT_FALSE(core.state.ListBusy);
}

TEST_F(RunOk, TheFavouritesAreLeftByMovingBack) {
    core.app.Write("favorites.m3u", Media("sub/a.mp3"));
    browser().ReShow();
    Choose("Favorites");
    EXPECT_THAT(Texts(), ElementsAre("(Unknown Artist) - a"));
    browser().MoveBack();
    EXPECT_EQ(view.title, "Browse By Directory ");
    EXPECT_EQ(Selected(), "Favorites");
}

TEST_F(RunOk, GoingBackLandsOnTheRowOneCameFrom) {
    for (const char* name : {"a/x.mp3", "b/in/x.mp3", "c/x.mp3"})
        Media(name);
    browser().ReShow();
    Choose("b");
    Choose("in");
    EXPECT_EQ(view.title, " in");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "in");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "b");
    const auto top = Texts();
    browser().MoveBack();
    EXPECT_EQ(Texts(), top) << "there is nothing above the media folder";
}

TEST_F(RunOk, AFailureLeadsToTheTopAndIsReported) {
    Media("a/x.mp3");
    browser().ReShow();
    state.ListMode = ListFromAudio;
    bool once = true;
    view.onTitle = [&] {
        if (std::exchange(once, false)) throw Error("no heading", 91);
    };
    Choose("a");
    EXPECT_TRUE(core.Logged("Error in PlayList.Runok  Error:91"));
    EXPECT_TRUE(core.Logged("An error occured in playlists.runok "));
    EXPECT_EQ(state.ListMode, ListFromMenu);
    EXPECT_EQ(state.CurrentPath, media);
    EXPECT_FALSE(core.state.ListBusy);
}

TEST(BrowseHistory, SeparatesOnlyBeforeKinds) {
    std::string history;
    EXPECT_EQ(PopHistory(history), "");
    EXPECT_THAT(SplitHistory(history), testing::IsEmpty());
    PushHistory(history, "PATH:/m/a");
    PushHistory(history, "PATH:/m/a/b");
    PushHistory(history, "FILE:/m/a/b/c.mp3");
    EXPECT_EQ(history, "PATH:/m/a/PATH:/m/a/b/FILE:/m/a/b/c.mp3");
    EXPECT_THAT(SplitHistory(history),
                ElementsAre("PATH:/m/a", "PATH:/m/a/b", "FILE:/m/a/b/c.mp3"));
    EXPECT_EQ(PopHistory(history), "FILE:/m/a/b/c.mp3");
    EXPECT_EQ(PopHistory(history), "PATH:/m/a/b");
    EXPECT_EQ(PopHistory(history), "PATH:/m/a");
    EXPECT_EQ(history, "");
}

TEST_F(RunOk, WhatWasPlayedIsRememberedAndWalkedAgain) {
    test::FakeCatalogue known;
    known.files = {{"/a/in/x.mp3", "Band", "Song"}};
    catalogue = &known;
    Media("a/in/x.mp3");
    browser().ReShow();
    Choose("a");
    Choose("in");
    Choose("Band - Song");
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"),
              "PATH:" + media + "/a/PATH:" + media + "/a/in/FILE:" + media + "/a/in/x.mp3");
    state.CurrentPath = media;
    state.RestoreHistory = true;
    browser().ReShow();
    EXPECT_EQ(state.CurrentPath, media + "/a/in");
    EXPECT_EQ(view.title, " in");
    EXPECT_FALSE(state.RestoreHistory);
    EXPECT_EQ(player.Count("ReShow"), 1) << "what was played is not chosen again";
}

TEST_F(RunOk, HistoryIsKeptOnlyWhenSomethingWasPlayed) {
    Media("a/x.mp3");
    browser().ReShow();
    Choose("a");
    browser().doquit();
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"), "");
}

TEST_F(RunOk, HistoryIsNotWalkedWhenItIsOffOrTheCatalogueIsNotReady) {
    test::FakeCatalogue known;
    catalogue = &known;
    Media("a/x.mp3");
    core.settings.Write("main", "BrowseHistory", "PATH:" + media + "/a/FILE:" + media + "/a/x.mp3");
    state.RestoreHistory = true;
    known.state = DBStateValue::Rebuilding;
    browser().ReShow();
    EXPECT_EQ(state.CurrentPath, media);
    known.state = DBStateValue::OnLine;
    browser().ReShow();
    EXPECT_EQ(state.CurrentPath, media) << "the wish lasts for one entry";
    state.RestoreHistory = true;
    core.settings.values.UseBrowseHistory = false;
    browser().ReShow();
    EXPECT_EQ(state.CurrentPath, media);
    state.RestoreHistory = core.settings.values.UseBrowseHistory = true;
    browser().ReShow();
    EXPECT_EQ(state.CurrentPath, media + "/a");
}

TEST_F(RunOk, AStoredWayThatIsGoneOrASearchIsNotWalked) {
    test::FakeCatalogue known;
    catalogue = &known;
    for (const std::string& history :
         {"PATH:" + media + "/gone/FILE:x.mp3", std::string("SQL:SearchTitle|Title='a'/FILE:x.mp3"),
          std::string("junk"), std::string("////"), std::string("FILE:")}) {
        core.settings.Write("main", "BrowseHistory", history);
        state.RestoreHistory = true;
        browser().ReShow();
        EXPECT_EQ(state.CurrentPath, media) << history;
    }
}

} // namespace
} // namespace vk
