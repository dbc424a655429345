// The lists of folders, discs and drives.
#include "tests/browser/browser_fixture.h"
#include "tests/library/tag_bytes.h"

namespace vk::test {

constexpr const char* NewList = "Build a new PlayList";

using Populate = BrowserTest;

TEST_F(Populate, FoldersComeBeforeFilesEachInOrderAsTheModeHasThem) {
    MediaFiles({"b.mp3", "a_b.wma", "film.avi", "list.m3u", "notes.txt", "old.lst", "Zed/x.mp3",
                "A_Folder/x.mp3", "VIDEO_TS/VTS_01_1.txt", "._b.mp3", ".Trash/x.mp3",
                "$RECYCLE.BIN/x.mp3", "lost+found/x.mp3"});
    Media("empty.mp3", "");
    const std::string top = "Browse By Directory  | [Browse Removable Drive stick] | "
                            "Build a new PlayList | A Folder | VIDEO TS | Zed | ",
                      songs = "(Unknown Artist) - a b | (Unknown Artist) - b | ";
    for (const auto& [mode, files] : {std::pair{ListFromVideo, std::string("film")},
                                      {ListFromMenu, songs + "film | list | old"},
                                      {ListFromAudio, songs + "film | list"}}) {
        state.ListMode = mode;
        browser().ReShow();
        EXPECT_EQ(Shown(), top + files);
    }
    EXPECT_THAT(Descriptors(),
                ElementsAre("PATH:stick", "EDIT:", "PATH:media/A_Folder", "PATH:media/VIDEO_TS",
                            "PATH:media/Zed", "FILE:media/a_b.wma", "FILE:media/b.mp3",
                            "FILE:media/film.avi", "FILE:media/list.m3u"));
    EXPECT_THAT(Pictures(),
                ElementsAre("hdd_icon.gif", "playlist.gif", "folder.gif", "folder.gif",
                            "folder.gif", "wmafile.gif", "mp3.gif", "movie.gif", "playlist.gif"));
}

TEST_F(Populate, AudioFilesShowTheirTagsOthersTheirNamesWithNumbersOnRequest) {
    Media("x.mp3", std::string(200, 'x') + ID3v1("So What", "Miles Davis"));
    Media("Band - Film.avi", ID3v1("not", "asked"));
    core.volumes.drives.clear();
    browser().ReShow();
    EXPECT_EQ(list.Row(2).second, "So What");
    core.settings.values.numberedList = true;
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre(NewList, "1 - Band - Film", "2 - Miles Davis - So What"));
}

TEST_F(Populate, TheTopOffersDiscDrivesAndFavouritesThatAreThere) {
    core.app.Write("favorites.m3u", "");
    InsertDisc();
    // The drives of the media, of discs and of the system itself are not offered.
    for (const std::string& root : {media, core.app.Path(), cd, std::string("/")})
        core.volumes.drives.push_back({root, DriveType::Fixed});
    core.volumes.drives.push_back({"/net", DriveType::Remote});
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre("Browse CD/DVD drive", "Browse Removable Drive stick",
                                     "Browse Removable Drive /", NewList, "Favorites"));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:cd", "PATH:stick", "PATH:/",
                                           "EDIT:", "FILE:" + core.app.File("favorites.m3u")));
    EXPECT_THAT(view.said, Contains("Checking CD Rom"));
    Choose("Favorites", "<", "<");
    EXPECT_EQ(Selected(), "Favorites") << "where one came from, and no way leads further up";
    view.said.clear();
    core.settings.values.CDDriveLetter = "NONE";
    core.volumes.ready = {"NONE"};
    browser().ReShow();
    EXPECT_FALSE(core.state.CDReady);
    EXPECT_THAT(view.said, testing::Not(Contains("Checking CD Rom")));
}

TEST_F(Populate, OnlyTheArtistOfAllFilesIsLeftOut) {
    core.settings.values.hideDupeArtist = true;
    MediaFiles({"album/a.mp3", "empty/x.txt"});
    core.app.Write("presets.lst", "96.5:A");
    for (const auto& [row, first] : {std::pair{"empty", "No Supported Media Found"},
                                     {"album", ""},
                                     {"Edit Preset Radio Stations", "A - "}}) {
        Walk(row);
        EXPECT_EQ(list.ShownFirst(1), first);
    }
}

TEST_F(Populate, TheTopFollowsTheCatalogueAndTheDisc) {
    UseCatalogue({}, DBStateValue::Rebuilding);
    core.settings.values.CDDriveLetter = "/dev/sr0";
    core.volumes.drives = {{"/dev/sr0", DriveType::CdRom}};
    core.volumes.ready = {"/dev/sr0", cd};
    MediaFiles({"a/x.mp3", "b/x.mp3"});
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre(NewList, "a", "b")) << "a disc that is not mounted";
    core.clock.Advance(6000);
    EXPECT_EQ(view.loading, "The disc in the drive cannot be read.");
    core.volumes.tracks["/dev/sr0"] = {"/dev/sr0/Track01.CDA", "/dev/sr0/Track02.CDA"};
    core.clock.Advance(6000); // it has been said by then
    core.volumes.serials["/dev/sr0"] = 12;
    core.volumes.labels["/dev/sr0"] = "Audio CD";
    Steps({{"Browse CD/DVD drive",
            "Browsing CD/DVD ROM: Audio CD | [<...>] | CD Audio Track #1 | CD Audio Track #2",
            {"PATH:media", "FILE:/dev/sr0/Track01.CDA", "FILE:/dev/sr0/Track02.CDA"}}});
    Choose("CD Audio Track #2");
    EXPECT_EQ(Handed(), std::to_string(PlayAudio) + " Audio CD vk_audio.m3u 2 12 start");
    EXPECT_EQ(core.app.Read("vk_audio.m3u"), "/dev/sr0/Track01.CDA\r\n/dev/sr0/Track02.CDA\r\n");
    Enter(media);
    core.volumes.drives = {{cd, DriveType::CdRom}};
    list.SelectItem(3);
    known.state = DBStateValue::OnLine;
    core.clock.Advance(1000);
    EXPECT_THAT(Descriptors(),
                ElementsAre("SQL:BrowseAll", "PATH:cd", "EDIT:", "PATH:media/a", "PATH:media/b"));
    EXPECT_EQ(Selected(), "b");
    Choose(">");
    known.state = DBStateValue::Offline;
    core.clock.Advance(1000);
    list.SelectItem(0);
    Choose(">");
    EXPECT_EQ(view.title, "Recurse Folder: b")
        << "nothing changes by itself, and back is no folder";
}

TEST_F(Populate, ASubfolderLeadsBackAndSaysSoWhenItIsEmpty) {
    Media("Live_1999/deep/x.txt");
    for (const char* end : {"", "/"}) { // a separator after the media folder makes no difference
        core.settings.values.MediaDir = media + end;
        Enter(media + end);
        Steps({{"Live 1999",
                " Live 1999 | [<...>] | deep | No Supported Media Found",
                {"PATH:media", "PATH:media/Live_1999/deep", ""}}});
        EXPECT_THAT(Pictures(), ElementsAre("back.gif", "folder.gif", "alert.gif"));
        Choose("<...>");
        EXPECT_EQ(Selected(), "Live 1999");
    }
}

TEST_F(Populate, ADriveIsLeftForTheMediaFolderUnlessItIsMountedThere) {
    disk.Write("stick/song.mp3", "x");
    disk.MakeFolder("stick/more");
    Walk("Browse Removable Drive stick");
    EXPECT_EQ(view.title, "Browsing removable drive: " + stick);
    EXPECT_THAT(view.said, Contains("Reading removable drive " + stick));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:media", "PATH:stick/more", "FILE:stick/song.mp3"));
    Choose("more");
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:stick", ""));
    Media("in/usb/a.mp3");
    core.volumes.drives = {{media + "/in/usb", DriveType::Removable}};
    Enter(media);
    Steps({{"in", " in | [<...>] | usb | No Supported Media Found"},
           {"usb",
            " usb | [<...>] | (Unknown Artist) - a",
            {"PATH:media/in", "FILE:media/in/usb/a.mp3"}},
           {"<", " in | <...> | [usb] | No Supported Media Found"},
           {"<", "Browse By Directory  | Build a new PlayList | [in]"}});
}

TEST_F(Populate, AudioTracksOfADiscAreCountedAndAVideoDiscIsOneRow) {
    using Case = std::array<std::string, 3>;
    InsertDisc();
    for (const char* track : {"cd/Track01.cda", "cd/Track02.cda"})
        disk.Write(track, "RIFF");
    browser().ReShow();
    Steps({{"Browse CD/DVD drive",
            "Browsing CD/DVD ROM: DISC_1 | [<...>] | CD Audio Track #1 | CD Audio Track #2"}});
    EXPECT_THAT(view.said, Contains("Reading CD/DVD"));
    EXPECT_THAT(Pictures(), ElementsAre("back.gif", "audiocd.gif", "audiocd.gif"));
    for (const char* track : {"/Track01.cda", "/Track02.cda"})
        DeleteFileAt(cd + track);
    for (const auto& [name, text, descriptor] :
         {Case{"video_ts/x", "DVD Video: DISC_1", "FILE:DVDVIDEO"},
          Case{"mpeg2/AVSEQ01.MPG", "SVCD Video: DISC_1", "FILE:cd/mpeg2/AVSEQ01.MPG"},
          Case{"Mpeg/AVSEQ01.MPG", "VCD Video: DISC_1", "FILE:cd/Mpeg/AVSEQ01.MPG"},
          Case{"MPEG/readme.txt", "No Supported Media Found", ""}}) {
        const std::string file = disk.Write("cd/" + name, "x");
        if (file.ends_with("MPG")) disk.Write("cd/" + FolderOf(name) + "/avseq02.mpg", "x");
        Enter(cd);
        EXPECT_THAT(Texts(), ElementsAre("<...>", text));
        EXPECT_THAT(Descriptors(), ElementsAre("PATH:media", descriptor));
        std::filesystem::remove_all(FolderOf(file));
    }
}

TEST_F(Populate, AFolderThatIsGoneGivesWayToTheMediaFolderThatMayBeGoneToo) {
    Media("a/x.mp3");
    core.volumes.drives.clear();
    browser().ReShow();
    std::filesystem::remove_all(media + "/a");
    Steps({{"a", "Browse By Directory  | [Build a new PlayList]"}});
    EXPECT_EQ(state.CurrentPath, media);
    EXPECT_EQ(view.loading, "The folder is not available.");
    EXPECT_TRUE(core.Logged(media + "/a is gone"));
    core.settings.values.MediaDir = disk.File("nowhere");
    Enter(disk.File("nowhere"));
    EXPECT_THAT(Texts(), ElementsAre(NewList));
    Choose("<", ">");
}

TEST_F(Populate, RowsComeFromTheCatalogueWhileItIsOnLine) {
    UseCatalogue({{"/sub/a.mp3", "Band", "Song"}, {"/sub/gone.mp3", "Band", "Gone"}});
    core.settings.values.SortByFilename = true;
    state.ListMode = ListFromAudio;
    MediaFiles({"sub/a.mp3", "sub/unknown.mp3"});
    browser().ReShow();
    Steps({{"sub", " sub | [<...>] | Band - Song", {"PATH:media", "FILE:media/sub/a.mp3"}}});
    EXPECT_EQ(known.asked, media + "/sub playable by name");
    known.state = DBStateValue::Rebuilding;
    Choose("<...>", "sub");
    EXPECT_THAT(Texts(), Contains("(Unknown Artist) - unknown"));
}

TEST_F(Populate, AFolderIsListedWithAllBelowItOnce) {
    MediaFiles({"rock/b.mp3", "rock/live/a.mp3", "rock/.x/c.mp3"});
    core.clock.workMs = 400;
    std::filesystem::create_directory_symlink(media + "/rock", media + "/rock/live/loop");
    browser().ReShow();
    browser().Buttons().ToggleRecurse();
    EXPECT_EQ(view.pictures[BrowserButton::Recurse], "recursesel.gif");
    Steps({{"rock",
            "Recurse Folder: rock | [<...>] | (Unknown Artist) - b | (Unknown Artist) - a",
            {"PATH:media", "FILE:media/rock/b.mp3", "FILE:media/rock/live/a.mp3"}}});
    EXPECT_THAT(view.said, Contains("Busy  1"));
    EXPECT_EQ(view.pictures[BrowserButton::Recurse], "recurse.gif");
    Choose("<...>");
    EXPECT_EQ(Selected(), "rock");
    InsertDisc();
    disk.Write("cd/a/b/c.mp3", "x");
    Enter(cd);
    for (int press = 0; press < 2; ++press) { // a file is no folder to be walked
        list.SelectItem(1);
        Choose(">");
        EXPECT_EQ(view.title, "Recurse CD/DVD: a");
        EXPECT_THAT(Descriptors(), ElementsAre("PATH:cd", "FILE:cd/a/b/c.mp3"));
    }
}

} // namespace vk::test
