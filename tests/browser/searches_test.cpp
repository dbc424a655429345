// The text searches and their saved lists, on a real catalogue.
#include "tests/browser/database_fixture.h"

namespace vk::test {

constexpr const char *ByTitle = "---Search by Title---", *ByArtist = "---Search by Artist---",
                     *ByGenre = "---Search by Genre---", *ByName = "---Search by Filename---";

class SearchesTest : public DatabaseTest {
  protected:
    SearchesTest() {
        Add({{"/rock/a.mp3", "Motörhead", "It's Late", "", "Hard Rock"},
             {"/pop/b.mp3", "Кино", "Группа крови", "", "Pop"},
             {"/pop/100%.mp3", "Band", "a_b", "", "Pop"},
             {"/pop/d.mp3", "Band", "axb", "", "Pop"}});
    }
    void AskFor(const char* row) {
        Walk("Browse Database", "---Text Search Options---", row, "<New Search>");
        EXPECT_TRUE(view.keyboard);
    }
    void Search(const char* row, const std::string& text) {
        AskFor(row);
        Type(text);
        EXPECT_FALSE(view.keyboard);
    }
};

TEST_F(SearchesTest, FourSearchesLookInTheirFields) {
    using Case = std::array<const char*, 4>;
    const char* late = "Motörhead - It's Late";
    for (const auto& [row, text, body, shown] :
         {Case{ByTitle, "LATE", "SearchTitle", late}, Case{ByTitle, "it's", "SearchTitle", late},
          Case{ByTitle, "КРОВИ", "SearchTitle", "Кино - Группа крови"},
          Case{ByTitle, "i%e", "SearchTitle", late},
          Case{ByTitle, "a_b", "SearchTitle", "Band - a_b | Band - axb"},
          Case{ByArtist, "motor", "SearchArtist", late},
          Case{ByArtist, "MOTÖR", "SearchArtist", late}, Case{ByGenre, "rock", "SearchGenre", late},
          Case{ByName, "rock/a", "SearchPath", late},
          Case{ByTitle, "\"; '--", "TextSearch", "No Supported Media Found"}}) {
        Search(row, text);
        const std::string field = row == ByArtist ? "Artist" : row == ByGenre ? "Genre" : "Title";
        EXPECT_EQ(Shown(), "Search " + field + "  : " + text + " | [<...>] | " + shown);
        EXPECT_EQ(list.Row(0).descriptor, std::string("SQL:") + body);
        EXPECT_EQ(view.loading, "");
    }
    for (const char* row : {ByTitle, "---Text Search Options---"}) { // nothing was found
        Choose("<");
        EXPECT_EQ(Selected(), row);
    }
}

TEST_F(SearchesTest, ASavedTextIsSearchedForAgainButNotByTheHistory) {
    Search(ByTitle, "It's");
    Steps({{"<",
            "Search Title  | <...> | [<New Search>] | It's",
            {"SQL:TextSearch", "SQL:SearchTitle|Title=''", "SQL:SearchTitle|Title='It's'"}},
           {"It's", "Search Title  : It's | [<...>] | Motörhead - It's Late"},
           {"<", "Search Title  | <...> | <New Search> | [It's]"}});
    Search(ByTitle, "late");
    Choose("Motörhead - It's Late");
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"),
              "SQL:BrowseAll/SQL:TextSearch/SQL:SearchTitle/SQL:SearchTitle|Title=''/FILE:" +
                  media + "/rock/a.mp3");
    state.RestoreHistory = true;
    Enter(media);
    EXPECT_EQ(view.title, "Text Search Options ");
    EXPECT_FALSE(view.keyboard);
}

TEST_F(SearchesTest, WithoutATextTheMenuComesBack) {
    core.app.Write("searches_0.lst", "\xEF\xBB\xBFold\r\n\r\n  Bj\xF6rk\n");
    for (const bool escape : {true, false}) {
        AskFor(ByArtist);
        escape ? browser().doquit() : Type("  ");
        EXPECT_FALSE(view.keyboard);
        EXPECT_EQ(Shown(), "Search Artist  | <...> | [<New Search>] | old | Björk");
        Choose("<");
        EXPECT_EQ(Selected(), ByArtist);
    }
}

TEST_F(SearchesTest, TheLatestSearchesAreKept) {
    core.settings.values.SearchesToSave = 3;
    for (const char* text : {"one", "two", "three", "One", "four"})
        Search(ByGenre, text);
    EXPECT_EQ(core.app.Read("searches_2.lst"), "four\r\nOne\r\nthree\r\n");
    Search(ByTitle, "two\nlines");
    EXPECT_EQ(core.app.Read("searches_1.lst"), "two lines\r\n");
    core.settings.values.SearchesToSave = 0;
    Search(ByGenre, "five");
    EXPECT_EQ(core.app.Read("searches_2.lst"), "");
}

TEST_F(SearchesTest, WhatFailsIsSaidAndKeepsWhatThereIs) {
    core.app.MakeFolder("searches_1.lst");
    std::filesystem::create_symlink("/dev/null", core.app.File("searches_0.lst"));
    for (const char* row : {ByTitle, ByArtist}) {
        Search(row, "e");
        EXPECT_GT(list.ItemCount(), 1);
        EXPECT_EQ(view.loading, "The search could not be saved.");
    }
    EXPECT_TRUE(std::filesystem::is_symlink(core.app.File("searches_0.lst")));
    EXPECT_TRUE(core.Logged("the search could not be saved: "));
    AskFor(ByName);
    BreakDatabase();
    Type("late");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:SearchPath"));
    EXPECT_EQ(view.loading, "The list could not be read.");
    EXPECT_TRUE(core.Logged("An error occured in playlists.RunSearch "));
}

TEST_F(SearchesTest, AKeyLeadsToTheSearchesUnlessTextIsTyped) {
    Walk("rock");
    EXPECT_TRUE(browser().Form_KeyDown("70"));
    EXPECT_EQ(view.title, "Text Search Options ");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:BrowseAll", "SQL:SearchTitle", "SQL:SearchArtist",
                                           "SQL:SearchGenre", "SQL:SearchPath"));
    Choose("<");
    EXPECT_EQ(Selected(), "---Text Search Options---");
    AskFor(ByTitle);
    browser().Form_KeyDown("70");
    EXPECT_EQ(keyboard.UserText(), "F");
    core.state.DBState = DBStateValue::Rebuilding;
    Enter(media);
    browser().JumpToSearch();
    EXPECT_EQ(view.title, "Browse By Directory ");
    EXPECT_EQ(view.loading, "The media database is not available.");
}

} // namespace vk::test
