// The text searches and their saved lists, on a real catalogue.
#include "tests/library/database_fixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

class SearchesTest : public test::DatabaseTest {
  protected:
    SearchesTest() {
        Add({{"/rock/a.mp3", "Motörhead", "It's Late", "", "Hard Rock"},
             {"/pop/b.mp3", "Кино", "Группа \xD0\xBA\xD1\x80\xD0\xBE\xD0\xB2\xD0\xB8", "", "Pop"},
             {"/pop/100%.mp3", "Band", "a_b", "", "Pop"},
             {"/pop/d.mp3", "Band", "axb", "", "Pop"}});
    }
    void Search(const char* row, const std::string& text) {
        Walk({"Browse Database", "---Text Search Options---", row, "<New Search>"});
        EXPECT_TRUE(view.keyboard);
        Type(text);
        EXPECT_FALSE(view.keyboard);
    }
    std::vector<std::string> Found() const {
        auto texts = Texts();
        texts.erase(texts.begin());
        return texts;
    }
};

TEST_F(SearchesTest, FourSearchesLookInTheirFields) {
    struct Case {
        const char *row, *text, *title, *back;
        std::vector<std::string> found;
    };
    const std::vector<Case> cases = {{"---Search by Title---",
                                      "LATE",
                                      "Search Title  : LATE",
                                      "SQL:SearchTitle",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Title---",
                                      "it's",
                                      "Search Title  : it's",
                                      "SQL:SearchTitle",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Title---",
                                      "КРОВИ",
                                      "Search Title  : КРОВИ",
                                      "SQL:SearchTitle",
                                      {"Кино - Группа крови"}},
                                     {"---Search by Title---",
                                      "i%e",
                                      "Search Title  : i%e",
                                      "SQL:SearchTitle",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Title---",
                                      "a_b",
                                      "Search Title  : a_b",
                                      "SQL:SearchTitle",
                                      {"Band - a_b", "Band - axb"}},
                                     {"---Search by Artist---",
                                      "motor",
                                      "Search Artist  : motor",
                                      "SQL:SearchArtist",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Artist---",
                                      "MOTÖR",
                                      "Search Artist  : MOTÖR",
                                      "SQL:SearchArtist",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Genre---",
                                      "rock",
                                      "Search Genre  : rock",
                                      "SQL:SearchGenre",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Filename---",
                                      "rock/a",
                                      "Search Title  : rock/a",
                                      "SQL:SearchPath",
                                      {"Motörhead - It's Late"}},
                                     {"---Search by Title---",
                                      "\"; '--",
                                      "Search Title  : \"; '--",
                                      "SQL:TextSearch",
                                      {"No Supported Media Found"}}};
    for (const Case& each : cases) {
        Search(each.row, each.text);
        EXPECT_EQ(view.title, each.title);
        EXPECT_EQ(Found(), each.found) << each.text;
        EXPECT_EQ(list.Row(0).descriptor, each.back);
        EXPECT_EQ(view.loading, "");
    }
}

TEST_F(SearchesTest, ASavedTextIsSearchedForAgain) {
    Search("---Search by Title---", "It's");
    browser().MoveBack();
    EXPECT_EQ(view.title, "Search Title ");
    EXPECT_EQ(Selected(), "<New Search>");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:TextSearch", "SQL:SearchTitle|Title=''",
                                           "SQL:SearchTitle|Title='It's'"));
    Choose("It's");
    EXPECT_EQ(view.title, "Search Title  : It's");
    EXPECT_THAT(Found(), ElementsAre("Motörhead - It's Late"));
    browser().MoveBack();
    EXPECT_EQ(Selected(), "It's");
    browser().MoveBack();
    EXPECT_EQ(Selected(), "---Search by Title---");
}

TEST_F(SearchesTest, WithoutATextTheMenuComesBack) {
    core.app.Write("searches_0.lst", "\xEF\xBB\xBFold\r\n\r\n  Bj\xF6rk\n");
    for (const bool escape : {true, false}) {
        Walk({"Browse Database", "---Text Search Options---", "---Search by Artist---",
              "<New Search>"});
        if (escape)
            browser().doquit();
        else
            Type("  ");
        EXPECT_FALSE(view.keyboard);
        EXPECT_EQ(view.title, "Search Artist ");
        EXPECT_THAT(Texts(), ElementsAre("<...>", "<New Search>", "old", "Björk"));
        EXPECT_EQ(Selected(), "<New Search>");
        browser().MoveBack();
        EXPECT_EQ(Selected(), "---Search by Artist---");
    }
}

TEST_F(SearchesTest, TheLatestSearchesAreKept) {
    core.settings.values.SearchesToSave = 3;
    for (const char* text : {"one", "two", "three", "One", "four"})
        Search("---Search by Genre---", text);
    EXPECT_EQ(core.app.Read("searches_2.lst"), "four\r\nOne\r\nthree\r\n");
    Search("---Search by Title---", "two\nlines");
    EXPECT_EQ(core.app.Read("searches_1.lst"), "two lines\r\n");
    core.settings.values.SearchesToSave = 0;
    Search("---Search by Genre---", "five");
    EXPECT_EQ(core.app.Read("searches_2.lst"), "");
}

TEST_F(SearchesTest, ATextThatCannotBeSavedIsSaid) {
    core.app.MakeFolder("searches_1.lst");
    Search("---Search by Title---", "late");
    EXPECT_THAT(Found(), ElementsAre("Motörhead - It's Late"));
    EXPECT_EQ(view.loading, "The search could not be saved.");
    EXPECT_TRUE(core.Logged("the search could not be saved: "));
}

TEST_F(SearchesTest, ASearchThatFailsKeepsItsWayBack) {
    Walk({"Browse Database", "---Text Search Options---", "---Search by Title---", "<New Search>"});
    BreakDatabase();
    Type("late");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:SearchTitle"));
    EXPECT_EQ(view.loading, "The list could not be read.");
    EXPECT_TRUE(core.Logged("An error occured in playlists.RunSearch "));
}

TEST_F(SearchesTest, AKeyLeadsToTheSearches) {
    Enter(media);
    Choose("rock");
    EXPECT_TRUE(browser().Form_KeyDown("70"));
    EXPECT_EQ(view.title, "Text Search Options ");
    EXPECT_THAT(Descriptors(), ElementsAre("SQL:BrowseAll", "SQL:SearchTitle", "SQL:SearchArtist",
                                           "SQL:SearchGenre", "SQL:SearchPath"));
    browser().MoveBack();
    EXPECT_EQ(Selected(), "---Text Search Options---");
    core.state.DBState = DBStateValue::Rebuilding;
    Enter(media);
    browser().JumpToSearch();
    EXPECT_EQ(view.title, "Browse By Directory ");
    EXPECT_EQ(view.loading, "The media database is not available.");
}

TEST_F(SearchesTest, TheKeyIsALetterWhileTextIsTyped) {
    Walk({"Browse Database", "---Text Search Options---", "---Search by Title---", "<New Search>"});
    browser().Form_KeyDown("70");
    EXPECT_TRUE(view.keyboard);
    EXPECT_EQ(keyboard.UserText(), "F");
    browser().JumpToSearch();
    EXPECT_TRUE(view.keyboard);
}

TEST_F(SearchesTest, ASearchIsNotRunAgainByTheHistory) {
    Search("---Search by Title---", "late");
    Choose("Motörhead - It's Late");
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"),
              "SQL:BrowseAll/SQL:TextSearch/SQL:SearchTitle/SQL:SearchTitle|Title=''/FILE:" +
                  media + "/rock/a.mp3");
    state.RestoreHistory = true;
    Enter(media);
    EXPECT_EQ(view.title, "Text Search Options ");
    EXPECT_FALSE(view.keyboard);
}

} // namespace
} // namespace vk
