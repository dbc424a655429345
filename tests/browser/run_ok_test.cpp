// What choosing rows does: playing, walking, lists, history.
#include "tests/browser/browser_fixture.h"

namespace vk::test {

using RunOk = BrowserTest;

TEST_F(RunOk, AnAudioFileIsHandedOverWithAllOfItsKind) {
    MediaFiles({"rock/a.mp3", "rock/b.avi", "rock/a\nb.mp3", "rock/c|d.mp3"});
    Walk("rock");
    ChooseAdded("FILE:" + media + "/rock/a\nb.mp3");
    EXPECT_EQ(view.loading, NameFitsNoList);
    EXPECT_EQ(player.Count("ReShow"), 0) << "nothing else is played for it";
    Choose("(Unknown Artist) - c|d");
    // Without the name that a line cannot hold.
    EXPECT_EQ(core.app.Read("vk_audio.m3u"),
              media + "/rock/a.mp3\r\n" + media + "/rock/c|d.mp3\r\n");
    EXPECT_EQ(Handed(), std::to_string(PlayAudio) + " rock vk_audio.m3u 2 0 start");
    EXPECT_EQ(player.Count("ReShow"), 1);
    InsertDisc();
    disk.Write("cd/a.mp3", "x");
    state.FromPlayer = true;
    Enter(cd);
    Choose("(Unknown Artist) - a");
    EXPECT_EQ(Handed(), std::to_string(PlayAudio) + " DISC_1 vk_audio.m3u 1 4711 start");
    EXPECT_EQ(player.Count("ReDisplay"), 1) << "the player was left running";
    EXPECT_FALSE(state.FromPlayer);
}

TEST_F(RunOk, ADiscThatWasTakenOutLeadsToTheTop) {
    disk.Write("cd/a.mp3", "x");
    disk.Write("cd/b.avi", "x");
    for (const char* row : {"(Unknown Artist) - a", "b", "DVD Video: DISC_1"}) {
        if (std::string(row).starts_with("DVD")) disk.MakeFolder("cd/VIDEO_TS");
        InsertDisc();
        state.ListMode = ListFromAudio;
        Enter(cd);
        core.volumes.ready.clear();
        Choose(row);
        EXPECT_EQ(state.CurrentPath, media) << row;
        EXPECT_EQ(view.loading, "The disc is not in the drive.");
        EXPECT_EQ(state.ListMode, ListFromMenu) << row;
    }
    EXPECT_EQ(player.Count("ReShow"), 0);
}

TEST_F(RunOk, AMoviePlayerGetsListPositionAndDiscWithoutOneFilmsSaySo) {
    audio.PlayMode = PlayAudio;
    MediaFiles({"a.avi", "b.mp3", "c.mpg"});
    Walk("c");
    EXPECT_EQ(core.app.Read("vk_video.m3u"), media + "/a.avi\r\n" + media + "/c.mpg\r\n");
    EXPECT_EQ(view.loading, "The movie player is not available.");
    EXPECT_EQ(core.screens.CurrentForm, "playlists");
    EXPECT_EQ(player.Count("doquit"), 0);
    core.clock.Advance(4900);
    EXPECT_NE(view.loading, "");
    core.clock.Advance(1200);
    EXPECT_EQ(view.loading, "") << "the notice goes by itself";
    RecordingScreen movie;
    core.screens.Add("playmovie", movie);
    Choose("c");
    EXPECT_EQ(video.ListFile, core.app.File("vk_video.m3u"));
    EXPECT_EQ(video.MovieToSelect, 2);
    EXPECT_FALSE(video.VolumeSerial || video.PlayDVD);
    EXPECT_EQ(player.Count("doquit"), 1) << "whatever sounds is silenced";
    InsertDisc();
    disk.MakeFolder("cd/VIDEO_TS");
    Enter(cd);
    Choose("DVD Video: DISC_1");
    EXPECT_TRUE(video.PlayDVD);
    EXPECT_EQ(video.VolumeSerial, 4711);
    EXPECT_EQ(movie.Count("ReShow"), 2);
}

TEST_F(RunOk, APlaylistIsReadUnderItsOwnName) {
    core.settings.values.numberedList = true;
    MediaFiles({"a.mp3", "sub/One - Song.mp3"});
    Media("y.m3u", "#EXTM3U\n# nothing here\n");
    Media("z.m3u", "#EXTM3U\nsub/One - Song.mp3\nmissing.mp3\n" + media + "/a.mp3");
    core.volumes.drives.clear();
    browser().ReShow();
    Steps({{"3 - z",
            "z | [<...>] | <Edit This List> | 1 - One - Song | 2 - (Unknown Artist) - a",
            {"PATH:media", "EDIT:media/z.m3u", "FILE:media/sub/One - Song.mp3",
             "FILE:media/a.mp3"}}});
    Choose("<...>");
    Steps({{"2 - y",
            "y | [<...>] | <Edit This List> | <No Valid Filenames in the Playlist>",
            {"PATH:media", "EDIT:media/y.m3u", ""}},
           {"<No Valid Filenames in the Playlist>",
            "y | <...> | <Edit This List> | [<No Valid Filenames in the Playlist>]"}});
}

TEST_F(RunOk, AListThatCannotBeReadOrWrittenIsSaid) {
    for (const std::string& descriptor :
         {"FILE:" + Unreadable("x.m3u"), "EDIT:" + disk.File("x.m3u"),
          "FILE:" + Unreadable("presets.lst"), "XM:List|" + Unreadable("x.xcl")}) {
        browser().ReShow();
        ChooseAdded(descriptor);
        EXPECT_EQ(view.loading, "The list could not be read.") << descriptor;
        EXPECT_TRUE(core.Logged("could not read " + descriptor.substr(descriptor.find('/'))));
        EXPECT_EQ(state.ListMode, ListFromMenu);
    }
    Media("a.mp3");
    browser().ReShow();
    core.app.MakeFolder("vk_audio.m3u");
    Choose("(Unknown Artist) - a");
    EXPECT_EQ(view.loading, "The play list could not be written.");
    EXPECT_EQ(audio.PlayMode, PlayNone);
}

TEST_F(RunOk, AFailureLeadsToTheTopAndIsReported) {
    Media("a/x.mp3");
    browser().ReShow();
    state.ListMode = ListFromAudio;
    view.onTitle = [] { throw Error("no heading", 91); };
    Choose("a");
    EXPECT_TRUE(core.Logged("Error in PlayList.Runok  Error:91"));
    EXPECT_TRUE(core.Logged("An error occured in playlists.runok "));
    EXPECT_EQ(state.ListMode, ListFromMenu);
    EXPECT_EQ(state.CurrentPath, media);
}

TEST_F(RunOk, WhatWasPlayedIsRememberedAndWalkedAgain) {
    UseCatalogue({{"/a/in/x.mp3", "Band", "Song"}, {"/a/in/f.avi", "", "Film"}});
    MediaFiles({"a/in/x.mp3", "a/in/f.avi"});
    Walk("a");
    browser().doquit();
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"), "") << "nothing was played";
    Walk("a", "in", "Film", "Band - Song"); // the film cannot be played, so no way leads to it
    EXPECT_EQ(core.app.Read("vk_audio.m3u"), "#  in\r\n" + media + "/a/in/x.mp3\r\n");
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"),
              "PATH:" + media + "/a/PATH:" + media + "/a/in/FILE:" + media + "/a/in/x.mp3");
    state.RestoreHistory = true;
    Enter(media);
    EXPECT_EQ(state.CurrentPath, media + "/a/in");
    EXPECT_EQ(view.title, " in");
    EXPECT_FALSE(state.RestoreHistory);
    EXPECT_EQ(player.Count("ReShow"), 1) << "what was played is not chosen again";
}

TEST_F(RunOk, HistoryIsWalkedOnlyWhenItIsOnWantedAndStillThere) {
    UseCatalogue();
    Media("a/x.mp3");
    struct Case {
        std::string history, path = {}; ///< the path is below the media folder
        DBStateValue state = DBStateValue::OnLine;
        bool wanted = true, on = true;
    };
    const std::string a = "PATH:" + media + "/a/", way = a + "FILE:" + media + "/a/x.mp3";
    for (const Case& each :
         {Case{way, "", DBStateValue::Rebuilding}, Case{.history = way, .wanted = false},
          Case{.history = way, .on = false}, Case{"PATH:" + media + "/gone/FILE:x.mp3"},
          Case{"SQL:SearchTitle|Title='a'/FILE:x.mp3"}, Case{"junk"}, Case{"////"}, Case{"FILE:"},
          Case{"FILE:" + media + "/f.avi/" + way}, Case{way, "/a"},
          Case{a + a + std::string(300, 'x'), "/a"}}) {
        core.settings.Write("main", "BrowseHistory", each.history);
        known.state = each.state;
        state.RestoreHistory = each.wanted;
        core.settings.values.UseBrowseHistory = each.on;
        Enter(media);
        EXPECT_EQ(state.CurrentPath, media + each.path) << each.history;
        EXPECT_FALSE(state.RestoreHistory) << "the wish lasts for one entry";
    }
}

} // namespace vk::test
