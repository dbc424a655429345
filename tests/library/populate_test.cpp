// The lists of folders, discs and drives.
#include "tests/library/browser_fixture.h"
#include "tests/library/tag_bytes.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Populate : public test::BrowserTest {};

TEST_F(Populate, FoldersComeBeforeFilesEachInOrder) {
    Media("b.mp3");
    Media("a_b.wma");
    Media("film.avi");
    Media("list.m3u");
    Media("notes.txt");
    Media("empty.mp3", "");
    Media("Zed/x.mp3");
    Media("A_Folder/x.mp3");
    browser().ReShow();
    EXPECT_THAT(Texts(),
                ElementsAre("Browse Removable Drive " + stick, "A Folder", "Zed",
                            "(Unknown Artist) - a b", "(Unknown Artist) - b", "film", "list"));
    EXPECT_THAT(Descriptors(),
                ElementsAre("PATH:" + stick, "PATH:" + media + "/A_Folder",
                            "PATH:" + media + "/Zed", "FILE:" + media + "/a_b.wma",
                            "FILE:" + media + "/b.mp3", "FILE:" + media + "/film.avi",
                            "FILE:" + media + "/list.m3u"));
    EXPECT_THAT(Pictures(), ElementsAre("hdd_icon.gif", "folder.gif", "folder.gif", "wmafile.gif",
                                        "mp3.gif", "movie.gif", "playlist.gif"));
    EXPECT_EQ(view.title, "Browse By Directory ");
}

TEST_F(Populate, AudioFilesShowTheirTagsOthersTheirNames) {
    Media("x.mp3", std::string(200, 'x') + test::ID3v1("So What", "Miles Davis"));
    Media("Band - Film.avi", test::ID3v1("not", "asked"));
    core.volumes.drives.clear();
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre("Band - Film", "Miles Davis - So What"));
    EXPECT_EQ(list.Row(1).second, "So What");
}

TEST_F(Populate, RowsAreNumberedOnRequest) {
    core.settings.values.numberedList = true;
    Media("One - First.mp3");
    Media("film.avi");
    browser().ReShow();
    EXPECT_THAT(Texts(), testing::Contains("1 - One - First"));
    EXPECT_THAT(Texts(), testing::Contains("2 - film"));
}

TEST_F(Populate, TheTopOffersDiscDrivesAndFavouritesThatAreThere) {
    core.app.Write("favorites.m3u", "");
    InsertDisc();
    core.volumes.drives.push_back({"/system", DriveType::Fixed});
    core.volumes.drives.push_back({"/net", DriveType::Remote});
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre("Browse CD/DVD drive", "Browse Removable Drive " + stick,
                                     "Browse Removable Drive /system", "Favorites"));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + cd, "PATH:" + stick, "PATH:/system",
                                           "FILE:" + core.app.File("favorites.m3u")));
    EXPECT_TRUE(core.state.CDReady);
    EXPECT_THAT(view.said, testing::Contains("Checking CD Rom"));
}

TEST_F(Populate, TheDrivesOfMediaDiscsAndSystemAreNotOffered) {
    core.volumes.drives = {{"/", DriveType::Fixed},
                           {media, DriveType::Fixed},
                           {core.app.Path(), DriveType::Fixed},
                           {cd, DriveType::Removable}};
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre("Browse Removable Drive /"));
}

TEST_F(Populate, WithoutADiscDriveNoneIsAsked) {
    core.settings.values.CDDriveLetter = "NONE";
    core.volumes.ready = {"NONE"};
    browser().ReShow();
    EXPECT_FALSE(core.state.CDReady);
    EXPECT_THAT(view.said, testing::Not(testing::Contains("Checking CD Rom")));
}

TEST_F(Populate, ASubfolderLeadsBackAndSaysSoWhenItIsEmpty) {
    Media("Live_1999/deep/x.txt");
    browser().ReShow();
    Choose("Live 1999");
    EXPECT_EQ(view.title, " Live 1999");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "deep", "No Supported Media Found"));
    EXPECT_THAT(Descriptors(),
                ElementsAre("PATH:" + media, "PATH:" + media + "/Live_1999/deep", ""));
    EXPECT_THAT(Pictures(), ElementsAre("back.gif", "folder.gif", "alert.gif"));
}

TEST_F(Populate, ASeparatorAfterTheMediaFolderMakesNoDifference) {
    Media("a/x.mp3");
    core.settings.values.MediaDir = state.CurrentPath = media + "/";
    browser().ReShow();
    Choose("a");
    EXPECT_EQ(list.Row(0).descriptor, "PATH:" + media);
    Choose("<...>");
    EXPECT_EQ(view.title, "Browse By Directory ");
}

TEST_F(Populate, ADriveIsEnteredAndLeftForTheMediaFolder) {
    disk.Write("stick/song.mp3", "x");
    disk.MakeFolder("stick/more");
    browser().ReShow();
    Choose("Browse Removable Drive " + stick);
    EXPECT_EQ(view.title, "Browsing removable drive: " + stick);
    EXPECT_THAT(view.said, testing::Contains("Reading removable drive " + stick));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + media, "PATH:" + stick + "/more",
                                           "FILE:" + stick + "/song.mp3"));
    Choose("more");
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + stick, ""));
}

TEST_F(Populate, AudioTracksOfADiscAreCounted) {
    InsertDisc();
    disk.Write("cd/Track01.cda", "RIFF");
    disk.Write("cd/Track02.cda", "RIFF");
    browser().ReShow();
    Choose("Browse CD/DVD drive");
    EXPECT_EQ(view.title, "Browsing CD/DVD ROM: DISC_1");
    EXPECT_THAT(view.said, testing::Contains("Reading CD/DVD"));
    EXPECT_THAT(Texts(), ElementsAre("<...>", "CD Audio Track #1", "CD Audio Track #2"));
    EXPECT_THAT(Pictures(), ElementsAre("back.gif", "audiocd.gif", "audiocd.gif"));
}

TEST_F(Populate, AVideoDiscIsOneRow) {
    InsertDisc();
    disk.MakeFolder("cd/video_ts");
    browser().ReShow();
    Choose("Browse CD/DVD drive");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "DVD Video: DISC_1"));
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + media, "FILE:DVDVIDEO"));
}

TEST_F(Populate, OlderVideoDiscsNameTheirFirstFilm) {
    const std::vector<std::pair<std::string, std::string>> kinds = {{"mpeg2", "SVCD Video: "},
                                                                    {"Mpeg", "VCD Video: "}};
    InsertDisc();
    for (const auto& [folder, text] : kinds) {
        disk.Write("cd/" + folder + "/avseq02.mpg", "x");
        disk.Write("cd/" + folder + "/AVSEQ01.MPG", "x");
        state.CurrentPath = cd;
        browser().ReShow();
        EXPECT_THAT(Texts(), ElementsAre("<...>", text + "DISC_1"));
        EXPECT_EQ(list.Row(1).descriptor, "FILE:" + cd + "/" + folder + "/AVSEQ01.MPG");
        std::filesystem::remove_all(disk.File("cd/" + folder));
    }
}

TEST_F(Populate, AFilmFolderWithoutFilmsGivesNoRow) {
    InsertDisc();
    disk.Write("cd/MPEG/readme.txt", "x");
    state.CurrentPath = cd;
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre("<...>", "No Supported Media Found"));
}

TEST_F(Populate, OnAHardDiskVideoFoldersAreFolders) {
    Media("VIDEO_TS/VTS_01_1.txt");
    browser().ReShow();
    EXPECT_THAT(Texts(), testing::Contains("VIDEO TS"));
}

TEST_F(Populate, ModesChooseWhatIsListed) {
    Media("a.mp3");
    Media("b.avi");
    Media("c.m3u");
    core.volumes.drives.clear();
    const std::vector<std::pair<std::int16_t, std::vector<std::string>>> modes = {
        {ListFromMenu, {"(Unknown Artist) - a", "b", "c"}},
        {ListFromAudio, {"(Unknown Artist) - a", "b", "c"}},
        {ListFromVideo, {"b"}}};
    for (const auto& [mode, rows] : modes) {
        state.ListMode = mode;
        browser().ReShow();
        EXPECT_EQ(Texts(), rows) << mode;
    }
}

TEST_F(Populate, TheApplicationsAreListedByName) {
    core.app.Write("apps.lst", "/usr/bin/a b -x|Maps|0|True|True\r\n\r\n/usr/bin/c\r\n");
    state.ListMode = ListApplications;
    browser().ReShow();
    EXPECT_EQ(view.title, "External Applications");
    EXPECT_THAT(Texts(), ElementsAre("Maps", "/usr/bin/c"));
    EXPECT_EQ(list.Row(0).descriptor, "/usr/bin/a b -x|Maps|0|True|True");
    Choose("Maps");
    EXPECT_EQ(view.loading, "Applications cannot be started.");
    EXPECT_TRUE(core.Logged("no program can be started: /usr/bin/a b -x|Maps"));
}

TEST_F(Populate, WithoutApplicationsANoticeStands) {
    state.ListMode = ListApplications;
    browser().ReShow();
    EXPECT_THAT(Texts(), ElementsAre("You have no applications configured"));
    browser().runok();
    EXPECT_EQ(view.loading, "");
}

TEST_F(Populate, AFolderThatIsGoneGivesWayToTheMediaFolder) {
    Media("a/x.mp3");
    browser().ReShow();
    std::filesystem::remove_all(media + "/a");
    Choose("a");
    EXPECT_EQ(state.CurrentPath, media);
    EXPECT_EQ(view.title, "Browse By Directory ");
    EXPECT_EQ(view.loading, "The folder is not available.");
    EXPECT_TRUE(core.Logged(media + "/a is gone"));
}

TEST_F(Populate, AMissingMediaFolderIsAnEmptyList) {
    core.settings.values.MediaDir = state.CurrentPath = disk.File("nowhere");
    core.volumes.drives.clear();
    browser().ReShow();
    EXPECT_THAT(Texts(), IsEmpty());
    browser().runok();
    browser().MoveBack();
    browser().MoveAhead();
    browser().PgDn();
    EXPECT_FALSE(core.state.ListBusy);
}

TEST_F(Populate, RowsComeFromTheCatalogueWhileItIsOnLine) {
    test::FakeCatalogue known;
    known.files = {{"/sub/a.mp3", "Band", "Song"}, {"/sub/gone.mp3", "Band", "Gone"}};
    catalogue = &known;
    core.settings.values.SortByFilename = true;
    state.ListMode = ListFromAudio;
    Media("sub/a.mp3");
    Media("sub/unknown.mp3");
    browser().ReShow();
    Choose("sub");
    EXPECT_EQ(known.asked, media + "/sub playable by name");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "Band - Song"));
    EXPECT_EQ(list.Row(1).descriptor, "FILE:" + media + "/sub/a.mp3");
    known.state = DBStateValue::Rebuilding;
    Choose("<...>");
    Choose("sub");
    EXPECT_THAT(Texts(), testing::Contains("(Unknown Artist) - unknown"));
}

TEST_F(Populate, AFolderIsListedWithAllBelowItOnce) {
    Media("rock/b.mp3");
    Media("rock/live/a.mp3");
    std::filesystem::create_directory_symlink(media + "/rock", media + "/rock/live/loop");
    browser().ReShow();
    browser().ToggleRecurse();
    EXPECT_EQ(view.pictures[BrowserButton::Recurse], "recursesel.gif");
    Choose("rock");
    EXPECT_EQ(view.title, "Recurse Folder: rock");
    EXPECT_EQ(view.pictures[BrowserButton::Recurse], "recurse.gif");
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + media, "FILE:" + media + "/rock/b.mp3",
                                           "FILE:" + media + "/rock/live/a.mp3"));
    Choose("<...>");
    EXPECT_EQ(Selected(), "rock");
}

TEST_F(Populate, RightListsTheSelectedFolderWhole) {
    InsertDisc();
    disk.Write("cd/a/b/c.mp3", "x");
    state.CurrentPath = cd;
    browser().ReShow();
    list.SelectItem(1);
    browser().MoveAhead();
    EXPECT_EQ(view.title, "Recurse CD/DVD: a");
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:" + cd, "FILE:" + cd + "/a/b/c.mp3"));
    list.SelectItem(1);
    browser().MoveAhead();
    EXPECT_EQ(list.ItemCount(), 2) << "a file is no folder to be walked";
}

} // namespace
} // namespace vk
