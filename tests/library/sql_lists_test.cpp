// The lists of the catalogue, on a real one.
#include "tests/library/database_fixture.h"

namespace vk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

class SqlListsTest : public test::DatabaseTest {
  protected:
    /// Goes to a mode without the rows of the media folder.
    void Build() { state.ListMode = ListBuild; }
};

TEST_F(SqlListsTest, TheDatabaseIsOfferedWhileItIsOnLine) {
    Enter(media);
    EXPECT_THAT(Texts(), ElementsAre("Browse Database", "Build a new PlayList"));
    Choose("Browse Database");
    EXPECT_EQ(view.title, "Browse Database ");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "---Browse by Artist---", "---Browse by Genre---",
                                     "---Browse All Playlists---", "---Browse All Music---",
                                     "---Browse All Video---", "---Browse New Music---",
                                     "---Text Search Options---"));
    EXPECT_THAT(Descriptors(),
                ElementsAre("PATH:media", "SQL:BrowseArtist", "SQL:BrowseGenre",
                            "SQL:BrowsePlaylist", "SQL:BrowseMusic", "SQL:BrowseVideo",
                            "SQL:BrowseNewMusic", "SQL:TextSearch"));
    EXPECT_EQ(list.Row(0).picture, "back.gif");
    EXPECT_EQ(list.Row(1).picture, "search.gif");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "Browse Database");
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
    Walk({"Browse Database", "---Browse by Artist---"});
    EXPECT_EQ(view.title, "Browsing by Artist ");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "Abba", "Queen"));
    Choose("Queen");
    EXPECT_EQ(view.title, "Artist: Queen");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "---List Albums---", "Queen - Ant", "Queen - Single",
                                     "Queen - Zoo"));
    EXPECT_THAT(list.Row(0).descriptor, "SQL:BrowseArtist");
    Choose("---List Albums---");
    EXPECT_EQ(view.title, "Albums of: Queen");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:BrowseArtist|Artist='Queen'",
                                           "SQL:BrowseArtist|Artist='Queen'[Albums]Album='Best'"));
    Choose("Best");
    EXPECT_EQ(view.title, "Queen AND Best");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:BrowseArtist|Artist='Queen'[Albums]",
                                           "FILE:media/a.mp3", "FILE:media/b.mp3"))
        << "in the order of the tracks, without the other artist's album of that name";
    for (const char* row : {"Best", "---List Albums---", "Queen", "---Browse by Artist---"}) {
        browser().MoveBack();
        EXPECT_EQ(Selected(), row);
    }
}

TEST_F(SqlListsTest, NamesOfAnyKindAreFoundAgain) {
    for (const std::string& name :
         {std::string("Guns N' Roses"), std::string("AC/DC"), std::string("A|B|C"),
          std::string("Foo [Albums] Bar"), std::string("[Albums]"), std::string("Two\nLines"),
          std::string("Mötley Crüe"), std::string("Кино"), std::string("椎名林檎"),
          std::string("100%_'; DROP TABLE Media;--"), std::string("<...>"), std::string("''")}) {
        Add({{"/x.mp3", name, "Song", name + " LP"}});
        Walk({"Browse Database", "---Browse by Artist---"});
        list.SelectItem(1);
        browser().runok();
        ASSERT_EQ(view.title, "Artist: " + name);
        ASSERT_THAT(Texts(), ElementsAre("<...>", "---List Albums---", name + " - Song"));
        Choose("---List Albums---");
        ASSERT_THAT(Texts(), ElementsAre("<...>", name + " LP"));
        Choose((name + " LP").c_str());
        ASSERT_EQ(view.title, name + " AND " + name + " LP");
        ASSERT_EQ(Descriptors().at(1), "FILE:media/x.mp3");
        browser().MoveBack();
        browser().MoveBack();
        ASSERT_EQ(view.title, "Artist: " + name);
    }
}

TEST_F(SqlListsTest, AGenreIsChosenByNumberUnderItsName) {
    Add({{"/a.mp3", "Band", "Song", "", "Rock"}, {"/b.mp3", "Band", "Other", "", "Drum'n'Bass"}});
    Walk({"Browse Database", "---Browse by Genre---"});
    EXPECT_EQ(view.title, "Browsing by Genre ");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "Drum'n'Bass", "Rock"));
    Choose("Drum'n'Bass");
    EXPECT_EQ(view.title, "Drum'n'Bass");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "Band - Other"));
    EXPECT_EQ(list.Row(0).descriptor, "SQL:BrowseGenre");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "Drum'n'Bass");
    Walk({"Browse Database", "---Browse by Artist---", "Band", "---List Albums---"});
    EXPECT_THAT(Texts(), ElementsAre("<...>", "No Supported Media Found"));
}

TEST_F(SqlListsTest, WholeListsHaveTheirOrder) {
    Add({{"/b.mp3", "B", "1", "", "", 0, MediaAudio, "2026-01-02 00:00:00"},
         {"/a.mp3", "A", "2", "", "", 0, MediaAudio, "2026-01-03 00:00:00"},
         {"/c.mp3", "A", "1", "", "", 0, MediaAudio, "2026-01-01 00:00:00"},
         {"/film.avi", "", "Film", "", "", 0, MediaVideo, "2027-01-01 00:00:00"},
         {.path = "/gone.mp3", .artist = "A", .title = "Gone", .exists = false}});
    core.settings.values.numberedList = true;
    struct Case {
        const char* row;
        const char* title;
        std::vector<std::string> texts;
    };
    for (const Case& each :
         {Case{"---Browse All Music---",
               "All Music ",
               {"<...>", "1 - A - 1", "2 - A - 2", "3 - B - 1"}},
          Case{"---Browse All Video---", "All Movies ", {"<...>", "1 - Film"}},
          Case{"---Browse New Music---", "New Music ", {"<...>", "1 - A - 2", "2 - B - 1"}},
          Case{"---Browse All Playlists---",
               "Browsing Playlists ",
               {"<...>", "No Playlists Found"}}}) {
        Walk({"Browse Database", each.row});
        EXPECT_EQ(view.title, each.title);
        EXPECT_EQ(Texts(), each.texts);
        EXPECT_EQ(list.Row(0).descriptor, "SQL:BrowseAll");
        EXPECT_EQ(view.loading, "");
    }
    core.settings.values.TopNewCount = -1;
    Walk({"Browse Database", "---Browse New Music---"});
    EXPECT_THAT(Texts(), ElementsAre("<...>", "No Supported Media Found"));
}

TEST_F(SqlListsTest, PlaylistsLeadBackAmongThem) {
    for (const char* name : {"1", "2"})
        Add({{std::string("/") + name + ".m3u", "Ignored", std::string("List ") + name, "", "", 0,
              MediaPlaylist}});
    Media("x"); // what both of them hold
    Walk({"Browse Database", "---Browse All Playlists---", "List 2"});
    EXPECT_EQ(view.title, "List 2");
    EXPECT_EQ(list.Row(0).descriptor, "SQL:BrowsePlaylist");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "List 2");
}

TEST_F(SqlListsTest, HeadingsSayThatAPlaylistIsBuilt) {
    Add({{"/a.mp3", "Abba", "Song", "LP", "Pop"}});
    Walk({"Browse Database", "---Browse by Artist---", "Abba", "---List Albums---"});
    Build();
    const std::vector<std::pair<const char*, const char*>> steps = {
        {"LP", "Building Playlist | Abba AND LP"},
        {"<...>", "Building Playlist | Albums of: Abba"},
        {"<...>", "Building Playlist | Artist: Abba"},
        {"<...>", "Build Playlist | Browsing by artist "},
        {"<...>", "Build Playlist | Browse Database "},
        {"---Browse by Genre---", "Building Playlist | Browsing by Genre "},
        {"Pop", "Pop"},
        {"<...>", "Building Playlist | Browsing by Genre "},
        {"<...>", "Build Playlist | Browse Database "},
        {"---Browse All Music---", "Build Playlist | All Music "},
        {"<...>", "Build Playlist | Browse Database "},
        {"---Browse New Music---", "Build Playlist | New Music "}};
    for (const auto& [row, title] : steps) {
        Choose(row);
        EXPECT_EQ(view.title, title);
    }
    Choose("<...>");
    EXPECT_THAT(Texts(), testing::Not(testing::AnyOf(Contains("---Browse All Playlists---"),
                                                     Contains("---Browse All Video---"))));
}

TEST_F(SqlListsTest, AListThatFailsKeepsItsWayBack) {
    Walk({"Browse Database"});
    BreakDatabase();
    for (const auto& [row, name] : {std::pair{"---Browse by Artist---", "BrowseArtist"},
                                    std::pair{"---Browse All Playlists---", "BrowsePlaylists"},
                                    std::pair{"---Browse All Music---", "BrowseMusic"}}) {
        Choose(row);
        EXPECT_THAT(Texts(), ElementsAre("<...>"));
        EXPECT_EQ(view.loading, "The list could not be read.");
        EXPECT_TRUE(core.Logged(std::string("An error occured in playlists.") + name + " "));
        EXPECT_TRUE(core.dialogs.shown.empty()) << "the application goes on";
        browser().MoveBack();
        EXPECT_EQ(Selected(), row);
    }
}

TEST_F(SqlListsTest, AWalkOverAllBelowThatFailsKeepsItsWayBack) {
    Media("rock/x.mp3");
    Enter(media);
    BreakDatabase();
    list.SelectItem(2);
    browser().MoveAhead();
    EXPECT_EQ(view.title, "Recurse Folder: rock");
    EXPECT_THAT(Descriptors(), ElementsAre("PATH:media")) << "nothing is said of what is there";
    EXPECT_TRUE(core.Logged("An error occured in playlists.RecurseFolder "));
}

TEST_F(SqlListsTest, WhatWasPlayedFromTheCatalogueIsWalkedAgain) {
    Add({{"/a.mp3", "AC/DC", "Song", "LP"}});
    Walk({"Browse Database", "---Browse by Artist---", "AC/DC", "---List Albums---", "LP",
          "AC/DC - Song"});
    EXPECT_EQ(audio.ListTitle, "AC/DC AND LP");
    state.RestoreHistory = true;
    Enter(media);
    EXPECT_EQ(view.title, "AC/DC AND LP");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "LP");
}

} // namespace
} // namespace vk
