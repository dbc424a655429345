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
    constexpr const char *Title = "---Search by Title---", *Artist = "---Search by Artist---",
                         *Late = "Motörhead - It's Late";
    struct Case {
        const char *row, *text, *body;
        std::vector<std::string> found;
    };
    const std::vector<Case> cases = {
        {Title, "LATE", "SearchTitle", {Late}},
        {Title, "it's", "SearchTitle", {Late}},
        {Title, "КРОВИ", "SearchTitle", {"Кино - Группа крови"}},
        {Title, "i%e", "SearchTitle", {Late}},
        {Title, "a_b", "SearchTitle", {"Band - a_b", "Band - axb"}},
        {Artist, "motor", "SearchArtist", {Late}},
        {Artist, "MOTÖR", "SearchArtist", {Late}},
        {"---Search by Genre---", "rock", "SearchGenre", {Late}},
        {"---Search by Filename---", "rock/a", "SearchPath", {Late}},
        {Title, "\"; '--", "TextSearch", {"No Supported Media Found"}}};
    for (const Case& each : cases) {
        Search(each.row, each.text);
        EXPECT_THAT(view.title, testing::MatchesRegex("Search (Title|Artist|Genre)  : .*"));
        EXPECT_TRUE(view.title.ends_with(each.text));
        EXPECT_EQ(Found(), each.found) << each.text;
        EXPECT_EQ(list.Row(0).descriptor, std::string("SQL:") + each.body);
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
    std::filesystem::create_symlink("/dev/null", core.app.File("searches_0.lst"));
    for (const char* row : {"---Search by Title---", "---Search by Artist---"}) {
        Search(row, "e");
        EXPECT_FALSE(Found().empty());
        EXPECT_EQ(view.loading, "The search could not be saved.");
    }
    EXPECT_TRUE(std::filesystem::is_symlink(core.app.File("searches_0.lst")));
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
    keys[Action::ok] = "65";
    for (const char* code : {"70", "65", "97"})
        browser().Form_KeyDown(code);
    EXPECT_TRUE(view.keyboard);
    EXPECT_EQ(keyboard.UserText(), "Fa1");
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
