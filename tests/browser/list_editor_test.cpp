// Building and editing lists: the two lists of that mode, and what is saved.
#include "tests/browser/browser_fixture.h"

namespace vk::test {

// Rows of the media folder, and of lists.
const std::string A = "1 - (Unknown Artist) - a", B = "2 - (Unknown Artist) - b",
                  B1 = "1 - (Unknown Artist) - b", D2 = "2 - (Unknown Artist) - d",
                  NoFiles = "<No Valid Filenames in the Playlist>";

class ListEditing : public BrowserTest {
  protected:
    using Names = std::vector<std::string>;

    ListEditing() {
        core.settings.values.PlaylistDir = lists;
        core.settings.values.numberedList = true;
        core.settings.values.xmpcr_enabled = true;
        core.volumes.drives.clear();
        MediaFiles({"a.mp3", "b.mp3", "c/d.mp3", "film.avi"});
    }
    Names Right() const { return TextsOf(rightList); }
    /// The lines of a list of these files of the media folder.
    std::string Lines(std::initializer_list<const char*> files) const {
        std::string text;
        for (const char* file : files)
            text += (*file == '#' ? "" : media + "/") + file + "\r\n";
        return text;
    }
    /// A list "old" of these files, opened from the playlist's own list.
    void Edit(std::initializer_list<const char*> files) {
        Media("old.m3u", Lines(files));
        browser().ReShow();
        ChooseLast();
        Choose("<Edit This List>");
    }
    template<class... Text> void BuildNew(const Text&... rows) {
        Walk("Build a new PlayList", rows...);
    }
    void SaveAs(const std::string& name) {
        browser().SaveList();
        Type(name);
    }

    const std::string lists = disk.MakeFolder("lists");
};

TEST_F(ListEditing, AFolderWalkIsCollectedAndSavedUnderAName) {
    UseCatalogue({}, DBStateValue::Offline);
    for (const char* other : {"presets.lst", "favorites.m3u"})
        core.app.Write(other, "96.5:A");
    BuildNew();
    EXPECT_EQ(view.laidOut, ListBuild);
    EXPECT_EQ(Shown(), "Building Playlist | Browse By Directory  | [c] | " + A + " | " + B);
    EXPECT_EQ(Right(), Names{NoFiles});
    Choose(B, B);
    Steps({{"c", "Building Playlist |  c | [<...>] | 1 - (Unknown Artist) - d"}});
    Choose("1 - (Unknown Artist) - d", "<");
    EXPECT_EQ(state.CurrentPath, media);
    EXPECT_EQ(Right(), (Names{B1, D2}));
    EXPECT_EQ(rightList.iSelected, 1);
    const auto begun = core.clock.TickMs();
    SaveAs(" Trip 1");
    EXPECT_EQ(disk.Read("lists/Trip 1.m3u"), Lines({"b.mp3", "c/d.mp3"}));
    EXPECT_THAT(view.titles, Contains("Saved: Trip 1"));
    EXPECT_EQ(core.clock.TickMs() - begun, 800);
    EXPECT_THAT(known.updated, ElementsAre(lists + "/Trip 1.m3u"));
    EXPECT_EQ(Shown(), "Trip 1 | [<...>] | <Edit This List> | " + B1 + " | " + D2);
    EXPECT_EQ(state.ListMode, ListFromMenu);
    EXPECT_EQ(view.laidOut, ListFromMenu);
    EXPECT_FALSE(view.keyboard);
}

TEST_F(ListEditing, AnEditedListIsUpdatedAndShownAgain) {
    state.ListMode = ListFromAudio;
    Edit({"# SELECT Path FROM Media", "a.mp3", "gone.mp3", "b.mp3", "c/d.mp3"});
    EXPECT_EQ(view.loading, "1 file is not there; it stays in the list.");
    EXPECT_EQ(Right(), (Names{A, B, "3 - (Unknown Artist) - d"}));
    rightList.SelectItem(0);
    browser().ChooseRight();
    EXPECT_EQ(Right(), (Names{B1, D2}));
    browser().doquit();
    EXPECT_EQ(view.loading, "") << "nothing lies over the keyboard";
    EXPECT_EQ(keyboard.UserText(), "old");
    EXPECT_EQ(keyboard.Mark(), KeyboardModel::OKKey);
    keyboard.KeyClick(KeyboardModel::EscKey);
    EXPECT_EQ(state.ListMode, ListBuild) << "Escape goes on editing";
    view.titles.clear();
    SaveAs("OLD");
    EXPECT_EQ(view.titles.at(0), "OLD Has Been Updated ");
    EXPECT_EQ(disk.Read("media/old.m3u"),
              Lines({"# SELECT Path FROM Media", "gone.mp3", "b.mp3", "c/d.mp3"}));
    EXPECT_EQ(view.loading, "1 file is not there.");
    EXPECT_EQ(Shown(), "old | [<...>] | <Edit This List> | " + B1 + " | " + D2);
    EXPECT_EQ(state.ListMode, ListFromAudio);
    Choose("<");
    EXPECT_EQ(Selected(), "4 - old") << "the way back is as it was";
}

TEST_F(ListEditing, OfAListOfAnotherProgramOnlyTheChosenEntryGoes) {
    using Case = std::array<std::string, 4>;
    const std::string address = "http://radio/live", here = media + "/";
    for (const auto& [name, before, removed, renamed] : // the latter without the second entry
         {Case{"old.m3u8",
               "\xEF\xBB\xBF#EXTM3U\n#EXTINF:1,A\nA.MP3\n# mine\n#EXTINF:2,B\nfile://" + here +
                   "%62.mp3\ngone.mp3\n" + address,
               "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:1,A\r\nA.MP3\r\n# mine\r\ngone.mp3\r\n" + address +
                   "\r\n",
               "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:1,A\r\n" + here + "a.mp3\r\n# mine\r\n" + here +
                   "gone.mp3\r\n" + address + "\r\n"},
          Case{"old.pls",
               "[Playlist]\nFile1=a.mp3\nTitle1=An A\nLength1=9\nFile2=b.mp3\nTitle2=B\n"
               "File3=gone.mp3\nNumberOfEntries=3",
               "[playlist]\r\nFile1=a.mp3\r\nTitle1=An A\r\nLength1=9\r\nFile2=gone.mp3\r\n"
               "NumberOfEntries=2\r\nVersion=2\r\n",
               "#EXTINF:9,An A\r\n" + here + "a.mp3\r\n" + here + "gone.mp3\r\n"}}) {
        Media(name, before);
        browser().ReShow();
        ChooseLast();
        Choose("<Edit This List>");
        EXPECT_EQ(Right(), (Names{A, B}));
        SaveAs("old");
        EXPECT_EQ(disk.Read("media/" + name), before) << "unchanged";
        for (const auto& [as, file, saved] :
             {std::array{std::string("old"), "media/" + name, removed},
              {std::string("new"), std::string("lists/new.m3u"), renamed}}) {
            Media(name, before);
            Choose("<Edit This List>");
            rightList.SelectItem(1);
            browser().ChooseRight();
            SaveAs(as);
            EXPECT_EQ(disk.Read(file), saved);
        }
        EXPECT_FALSE(FileExists(here + name));
        DeleteFileAt(lists + "/new.m3u");
    }
}

TEST_F(ListEditing, ANewNameTakesThePlaceOfTheOldOne) {
    UseCatalogue({}, DBStateValue::Offline);
    core.settings.values.PlaylistDir = media;
    Edit({"a.mp3"});
    SaveAs("new");
    EXPECT_EQ(disk.Read("media/new.m3u"), Lines({"a.mp3"}));
    EXPECT_FALSE(FileExists(media + "/old.m3u"));
    EXPECT_EQ(view.title, "new");
    Choose(A);
    known.state = DBStateValue::OnLine;
    known.files = {{"/new.m3u", "", "new"}};
    state.RestoreHistory = true;
    browser().ReShow();
    EXPECT_EQ(view.title, "new");
    Choose("<");
    EXPECT_EQ(Selected(), "1 - new");
}

TEST_F(ListEditing, WhatCannotBeSavedIsSaidAndLosesNothing) {
    disk.Write("lists/Taken.m3u", "other");
    disk.MakeFolder("lists/y.m3u.new"); // stands where the new file is written
    const std::string bad = "A list cannot have this name.", missing = disk.File("nowhere");
    using Case = std::array<std::string, 3>;
    BuildNew(A);
    for (const auto& [name, said, folder] :
         {Case{"   ", "Please type a name.", lists}, Case{"/", bad, lists}, Case{"..", bad, lists},
          Case{"a\nb", bad, lists}, Case{"../up", bad, lists},
          Case{std::string(300, 'x'), "The name is too long.", lists},
          Case{"taken", "There is a list of this name.", lists},
          Case{"x", "The playlist folder is missing.", missing}, Case{"y", "Not saved: ", lists}}) {
        core.settings.values.PlaylistDir = folder;
        SaveAs(name);
        EXPECT_THAT(keyboard.Caption(), testing::StartsWith(said)) << name;
        EXPECT_TRUE(view.keyboard);
        browser().doquit();
    }
    browser().GoHome();
    EXPECT_TRUE(view.keyboard) << "what was built is not left behind";
    browser().doquit();
    EXPECT_EQ(Right(), Names{A});
    EXPECT_EQ(disk.Read("lists/Taken.m3u"), "other");
    SaveAs("z");
    EXPECT_EQ(disk.Read("lists/z.m3u"), Lines({"a.mp3"}));
    core.settings.values.PlaylistDir.clear();
    BuildNew();
    EXPECT_EQ(view.loading, "The playlist folder is missing.");
    Choose(A);
    core.dialogs.answers = {false, true};
    SaveAs("");
    EXPECT_EQ(keyboard.Caption(), "Please type a name.") << "it is not thrown away unasked";
    keyboard.KeyClick(KeyboardModel::OKKey);
    EXPECT_FALSE(view.keyboard);
    EXPECT_EQ(state.ListMode, ListFromMenu) << "a new list without a name is given up";
}

TEST_F(ListEditing, AFailedSaveKeepsTheOldListAndAnEmptyNameTheListOnDisk) {
    Edit({"a.mp3", "b.mp3"});
    disk.MakeFolder("media/old.m3u.new");
    browser().ChooseRight();
    SaveAs("old");
    EXPECT_THAT(keyboard.Caption(), testing::StartsWith("Not saved: "));
    EXPECT_EQ(disk.Read("media/old.m3u"), Lines({"a.mp3", "b.mp3"}));
    browser().doquit();
    EXPECT_EQ(Right(), Names{B1});
    core.dialogs.answers = {true};
    SaveAs("");
    EXPECT_EQ(state.ListMode, ListFromMenu);
    EXPECT_EQ(Texts().size(), 4u) << "as it is on the disk";
    std::filesystem::remove(media + "/old.m3u.new");
    Choose("<Edit This List>");
    for (const auto press : {&Browser::ChooseRight, &Browser::ChooseRight, &Browser::doquit})
        (browser().*press)();
    keyboard.ClickIt();
    EXPECT_EQ(disk.Read("media/old.m3u"), "") << "an emptied list is saved, too";
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<Edit This List>", NoFiles));
}

TEST_F(ListEditing, TheArrowsChangeListsAndRemoveRows) {
    const auto press = [this](void (Browser::*key)(), bool right, const Names& rows) {
        (browser().*key)();
        EXPECT_EQ(view.rightFocus, right);
        EXPECT_EQ(Right(), rows);
    };
    BuildNew();
    press(&Browser::MoveAhead, false, {NoFiles});
    Choose(A, B);
    press(&Browser::MoveAhead, true, {A, B});
    EXPECT_EQ(rightList.iSelected, 0);
    press(&Browser::MoveDown, true, {A, B});
    press(&Browser::runok, true, {A});
    press(&Browser::MoveBack, false, {A});
    press(&Browser::ToggleListFocus, true, {A});
    press(&Browser::runok, false, {NoFiles});
    press(&Browser::ChooseRight, false, {NoFiles}); // the notice stays
    browser().doquit();
    EXPECT_FALSE(view.keyboard);
    EXPECT_EQ(state.ListMode, ListFromMenu);
    EXPECT_EQ(Selected(), "Build a new PlayList");
    EXPECT_TRUE(ListFolder(lists).empty());
}

TEST_F(ListEditing, FavouritesStayOutOfTheCatalogue) {
    UseCatalogue({}, DBStateValue::Offline);
    core.app.Write("favorites.m3u", Lines({"b.mp3", "a.mp3"}));
    Walk("Favorites", "<Edit This List>");
    browser().ChooseRight();
    SaveAs("favorites");
    EXPECT_EQ(core.app.Read("favorites.m3u"), Lines({"a.mp3"}));
    EXPECT_TRUE(known.updated.empty());
    EXPECT_THAT(Texts(), ElementsAre("<Edit This List>", A));
}

TEST_F(ListEditing, ChannelsAreCollectedInAListOfTheirOwn) {
    for (const int channel : {4, 10, 200})
        AddChannel(channel, "Channel" + std::to_string(channel));
    Walk("XM Presets & Categories", "<Build New Channel List>");
    EXPECT_EQ(view.title, "Build XM Channel List ");
    const auto all = Texts();
    UseCatalogue();
    browser().JumpToSearch();
    EXPECT_EQ(Texts(), all) << "the catalogue has no channels";
    browser().ReShow();
    EXPECT_EQ(Texts(), all);
    const std::string first = "200 - Channel200", second = "4 - Channel4";
    Choose(first, second, first);
    EXPECT_EQ(Right(), (Names{first, second}));
    SaveAs("mine");
    EXPECT_EQ(core.app.Read("mine.xcl"), "200\r\n4\r\n");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<Edit This List>", first, second));
    core.app.Write("mine.xcl", "# mine\n200\nnone\n4");
    Choose("<Edit This List>");
    EXPECT_EQ(view.title, "Edit XM Channel List ");
    EXPECT_EQ(Texts(), all);
    browser().ToggleListFocus();
    browser().runok();
    EXPECT_EQ(Right(), Names{second});
    SaveAs("yours");
    EXPECT_EQ(core.app.Read("yours.xcl"), "# mine\r\nnone\r\n4\r\n");
    EXPECT_FALSE(FileExists(core.app.File("mine.xcl")));
    Choose("<");
    EXPECT_EQ(Selected(), "yours");
    Choose("<Build New Channel List>");
    browser().doquit();
    EXPECT_EQ(view.title, "XM Channels and Categories ");
    Choose("<");
    EXPECT_EQ(Selected(), "XM Presets & Categories");
}

TEST_F(ListEditing, WhatAListCannotHoldIsRefused) {
    InsertDisc();
    disk.Write("cd/track.mp3", "x");
    Media("two\nlines.mp3");
    BuildNew();
    ChooseLast();
    EXPECT_EQ(view.loading, "This file's name cannot be stored in a list.");
    ChooseAdded("FILE:" + media + "/film.avi");
    EXPECT_EQ(view.loading, "Only music can be put in a list.");
    core.volumes.drives = {{cd, DriveType::CdRom}};
    Enter(cd);
    Choose("1 - (Unknown Artist) - track");
    EXPECT_EQ(view.loading, "Tracks of a CD cannot be put in a list.");
    EXPECT_EQ(Right(), Names{NoFiles});
}

TEST_F(ListEditing, AListThatIsNotReadWholeIsNotEdited) {
    std::string text;
    for (int i = 0; i < 20; ++i)
        text += Lines({"a.mp3", "b.mp3"});
    Media("long.m3u", text);
    Walk("4 - long");
    int runs = 0;
    core.clock.workMs = 100;
    core.clock.onEvents = [&] {
        if (++runs == 5) Press(&Browser::doquit);
    };
    Choose("<Edit This List>");
    EXPECT_EQ(state.ListMode, ListFromMenu);
    EXPECT_EQ(disk.Read("media/long.m3u"), text);
}

TEST_F(ListEditing, AnotherModeEndsTheBuildingNotEscapeWhileTheLeftListIsBuilt) {
    BuildNew(A);
    core.clock.workMs = 300;
    core.clock.onEvents = [&] { Press(&Browser::doquit); };
    Choose("c");
    core.clock.onEvents = {};
    EXPECT_EQ(menu.Count("ReShow"), 0);
    EXPECT_EQ(state.ListMode, ListBuild);
    browser().ReShow();
    EXPECT_EQ(Right(), Names{A}) << "the same mode finds its list again";
    EXPECT_EQ(view.laidOut, ListBuild);
    state.ListMode = ListFromMenu;
    browser().ReShow();
    EXPECT_EQ(view.laidOut, ListFromMenu);
    EXPECT_EQ(rightList.ItemCount(), 0);
    EXPECT_FALSE(view.rightFocus);
}

} // namespace vk::test
