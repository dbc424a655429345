// The lists of the catalogue, on a real one.
#include "tests/browser/database_fixture.h"

namespace vk::test {

using SqlListsTest = DatabaseTest;

TEST_F(SqlListsTest, TheDatabaseIsOfferedWhileItIsOnLine) {
    Enter(media);
    Steps({{"Browse Database",
            "Browse Database  | [<...>] | ---Browse by Artist--- | ---Browse by Genre--- | "
            "---Browse All Playlists--- | ---Browse All Music--- | ---Browse All Video--- | "
            "---Browse New Music--- | ---Text Search Options---",
            {"PATH:media", "SQL:BrowseArtist", "SQL:BrowseGenre", "SQL:BrowsePlaylist",
             "SQL:BrowseMusic", "SQL:BrowseVideo", "SQL:BrowseNewMusic", "SQL:TextSearch"}}});
    EXPECT_EQ(list.Row(0).picture, "back.gif");
    EXPECT_EQ(list.Row(1).picture, "search.gif");
    Steps({{"<", "Browse By Directory  | [Browse Database] | Build a new PlayList"}});
    core.state.DBState = DBStateValue::Rebuilding;
    Enter(media);
    EXPECT_THAT(Texts(), ElementsAre("Build a new PlayList"));
}

TEST_F(SqlListsTest, AnArtistLeadsToTitlesAndAlbumsAndBack) {
    Add({{"/a.mp3", "Queen", "Zoo", "Best", "Pop", 1},
         {"/b.mp3", "Queen", "Ant", "Best", "Pop", 2},
         {"/c.mp3", "Abba", "Bee", "Best", "Pop", 1},
         {"/d.mp3", "", "Nobody", "Best"},
         {"/e.mp3", "Queen", "Single", ""}});
    Walk("Browse Database");
    const std::string titles = " | Queen - Ant | Queen - Single | Queen - Zoo";
    Steps({{"---Browse by Artist---", "Browsing by Artist  | [<...>] | Abba | Queen"},
           {"Queen", "Artist: Queen | [<...>] | ---List Albums---" + titles},
           {"---List Albums---",
            "Albums of: Queen | [<...>] | Best",
            {"SQL:BrowseArtist|Artist='Queen'",
             "SQL:BrowseArtist|Artist='Queen'[Albums]Album='Best'"}},
           // In the order of the tracks, without the other artist's album of that name.
           {"Best",
            "Queen AND Best | [<...>] | Queen - Zoo | Queen - Ant",
            {"SQL:BrowseArtist|Artist='Queen'[Albums]", "FILE:media/a.mp3", "FILE:media/b.mp3"}},
           {"<", "Albums of: Queen | <...> | [Best]"},
           {"<", "Artist: Queen | <...> | [---List Albums---]" + titles},
           {"<", "Browsing by Artist  | <...> | Abba | [Queen]"}});
    Choose("Queen", "---List Albums---", "Best", "Queen - Ant");
    EXPECT_EQ(audio.ListTitle, "Queen AND Best");
    state.RestoreHistory = true;
    Enter(media); // what was played is walked again
    Steps({{"<", "Albums of: Queen | <...> | [Best]"}});
}

TEST_F(SqlListsTest, NamesOfAnyKindAreFoundAgain) {
    for (const std::string name :
         {"Guns N' Roses", "AC/DC", "A|B|C", "Foo [Albums] Bar", "[Albums]", "Two\nLines",
          "Mötley Crüe", "Кино", "椎名林檎", "100%_'; DROP TABLE Media;--", "<...>", "''"}) {
        Add({{"/x.mp3", name, "Song", name + " LP"}});
        Walk("Browse Database", "---Browse by Artist---");
        ChooseLast();
        const std::string song = name + " - Song", album = name + " LP";
        ASSERT_EQ(Shown(), "Artist: " + name + " | [<...>] | ---List Albums--- | " + song);
        Choose("---List Albums---");
        ASSERT_THAT(Texts(), ElementsAre("<...>", album));
        Choose(album);
        ASSERT_EQ(Shown(), name + " AND " + album + " | [<...>] | " + song);
        ASSERT_EQ(Descriptors().at(1), "FILE:media/x.mp3");
        Choose("<", "<");
        ASSERT_EQ(view.title, "Artist: " + name);
    }
}

TEST_F(SqlListsTest, AGenreIsChosenByNumberUnderItsName) {
    Add({{"/a.mp3", "Band", "Song", "", "Rock"}, {"/b.mp3", "Band", "Other", "", "Drum'n'Bass"}});
    Walk("Browse Database");
    Steps({{"---Browse by Genre---", "Browsing by Genre  | [<...>] | Drum'n'Bass | Rock"},
           {"Drum'n'Bass",
            "Drum'n'Bass | [<...>] | Band - Other",
            {"SQL:BrowseGenre", "FILE:media/b.mp3"}},
           {"<", "Browsing by Genre  | <...> | [Drum'n'Bass] | Rock"}});
    Walk("Browse Database", "---Browse by Artist---", "Band", "---List Albums---");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "No Supported Media Found"));
}

TEST_F(SqlListsTest, WholeListsHaveTheirOrder) {
    Add({{"/b.mp3", "B", "1", "", "", 0, MediaAudio, "2026-01-02 00:00:00"},
         {"/a.mp3", "A", "2", "", "", 0, MediaAudio, "2026-01-03 00:00:00"},
         {"/c.mp3", "A", "1", "", "", 0, MediaAudio, "2026-01-01 00:00:00"},
         {"/film.avi", "", "Film", "", "", 0, MediaVideo, "2027-01-01 00:00:00"},
         {"/older.avi", "", "Older", "", "", 0, MediaVideo, "2020-01-01 00:00:00"},
         {.path = "/gone.mp3", .artist = "A", .title = "Gone", .exists = false}});
    core.settings.values.numberedList = true;
    core.clock.workMs = 10;
    core.clock.onEvents = [this] { db.InitDB(false); }; // as when the server hands its file over
    const std::string back = " | [<...>] | ";
    for (const auto& [row, shown] :
         {std::pair{"---Browse All Music---",
                    "All Music " + back + "1 - A - 1 | 2 - A - 2 | 3 - B - 1"},
          std::pair{"---Browse All Video---", "All Movies " + back + "1 - Film | 2 - Older"},
          std::pair{"---Browse New Music---", "New Music " + back + "1 - A - 2 | 2 - B - 1"},
          std::pair{"---Browse All Playlists---",
                    "Browsing Playlists " + back + "No Playlists Found"}}) {
        Walk("Browse Database");
        Steps({{row, shown}});
        EXPECT_EQ(list.Row(0).descriptor, "SQL:BrowseAll");
        EXPECT_EQ(view.loading, "");
    }
    core.settings.values.TopNewCount = -1;
    Walk("Browse Database", "---Browse New Music---");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "No Supported Media Found"));
}

TEST_F(SqlListsTest, PlaylistsLeadBackAmongThem) {
    Add({{"/1.m3u", "Ignored", "List 1", "", "", 0, MediaPlaylist},
         {"/2.m3u", "Ignored", "List 2", "", "", 0, MediaPlaylist}});
    Media("x"); // what both of them hold
    Walk("Browse Database", "---Browse All Playlists---", "List 2");
    EXPECT_EQ(view.title, "List 2");
    EXPECT_EQ(list.Row(0).descriptor, "SQL:BrowsePlaylist");
    Choose("<");
    EXPECT_EQ(Selected(), "List 2");
}

TEST_F(SqlListsTest, HeadingsSayThatAPlaylistIsBuilt) {
    Add({{"/a.mp3", "Abba", "Song", "LP", "Pop"}});
    Walk("Browse Database", "---Browse by Artist---", "Abba", "---List Albums---");
    state.ListMode = ListBuild;
    const std::string building = "Building Playlist | ", build = "Build Playlist | ";
    for (const auto& [row, title] : {std::pair{"LP", building + "Abba AND LP"},
                                     {"<...>", building + "Albums of: Abba"},
                                     {"<...>", building + "Artist: Abba"},
                                     {"<...>", build + "Browsing by artist "},
                                     {"<...>", build + "Browse Database "},
                                     {"---Browse by Genre---", building + "Browsing by Genre "},
                                     {"Pop", "Pop"},
                                     {"<...>", building + "Browsing by Genre "},
                                     {"<...>", build + "Browse Database "},
                                     {"---Browse All Music---", build + "All Music "},
                                     {"<...>", build + "Browse Database "},
                                     {"---Browse New Music---", build + "New Music "}}) {
        Choose(row);
        EXPECT_EQ(view.title, title);
    }
    Choose("<...>");
    for (const char* row : {"---Browse All Playlists---", "---Browse All Video---"})
        EXPECT_THAT(Texts(), testing::Not(testing::Contains(row)));
}

TEST_F(SqlListsTest, AListThatFailsKeepsItsWayBackAndAFolderIsReadItself) {
    Media("rock/x.mp3");
    Walk("Browse Database");
    BreakDatabase();
    for (const auto& [row, name] : {std::pair{"---Browse by Artist---", "BrowseArtist "},
                                    std::pair{"---Browse All Playlists---", "BrowsePlaylists "},
                                    std::pair{"---Browse All Music---", "BrowseMusic "}}) {
        Choose(row);
        EXPECT_THAT(Texts(), ElementsAre("<...>"));
        EXPECT_EQ(view.loading, "The list could not be read.");
        EXPECT_TRUE(core.Logged(std::string("An error occured in playlists.") + name));
        EXPECT_TRUE(core.dialogs.shown.empty()) << "the application goes on";
        Choose("<");
        EXPECT_EQ(Selected(), row);
    }
    Enter(media);
    list.SelectItem(2);
    // Nothing is said of what is there.
    Steps({{">", "Recurse Folder: rock | [<...>]", {"PATH:media"}}});
    EXPECT_TRUE(core.Logged("An error occured in playlists.RecurseFolder "));
    Enter(media + "/rock");
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:media", "FILE:media/rock/x.mp3"));
    EXPECT_TRUE(core.Logged("An error occured in playlists.Populate "));
}

} // namespace vk::test
