#include "core/text.h"
#include "library/catalogue/date_stamp.h"
#include "library/catalogue/file_row.h"
#include "library/media_tags.h"
#include "tests/library/catalogue_fixture.h"

#include <sys/stat.h>

namespace vk::test {
namespace {

using testing::ElementsAre, testing::SizeIs;

struct CatalogueTest : CatalogueFixture {
    void Add(const std::string& name, const std::string& title, const std::string& artist,
             const std::string& genre = "Pop", std::time_t date = 1'000'000'000) {
        db.UpdateFileRow(Tagged(name, title, date, artist, genre));
    }
};

TEST_F(CatalogueTest, OpeningFollowsTheStates) {
    const auto open = [this](bool keep, bool manual) {
        settings.values.manualdb = manual;
        db.InitDB(keep);
        return state.DBState;
    };
    EXPECT_EQ(open(true, false), DBStateValue::CheckPoint) << "made from the template";
    EXPECT_EQ(open(true, false), DBStateValue::CheckPoint);
    EXPECT_EQ(open(false, false), DBStateValue::Initialized);
    EXPECT_EQ(open(true, true), DBStateValue::Initialized);
    EXPECT_EQ(open(false, true), DBStateValue::OnLine);
    db.Close();
    DeleteFileAt(app.File(CatalogueFileName));
    DeleteFileAt(app.File(EmptyCatalogueName));
    EXPECT_EQ(open(false, true), DBStateValue::Disabled);
    EXPECT_TRUE(Logged("There is no tags.mdb: tags_empty.mdb is missing"));
    app.MakeFolder(CatalogueFileName);
    EXPECT_EQ(open(false, false), DBStateValue::Disabled);
    EXPECT_EQ(LinesLogged("There is no tags.mdb: a folder is in its place"), 1);
    EXPECT_FALSE(db.IsOpen());
    EXPECT_THROW(db.Files("SELECT Path FROM Media"), Error);
}

TEST_F(CatalogueTest, AFileThatCannotBeUsedWaitsForTheServerAndEndsNothing) {
    const std::string whole = app.Read(EmptyCatalogueName);
    for (const std::string& torn : {std::string(), std::string("no database"),
                                    whole.substr(0, 5000), std::string(40000, '\x55')}) {
        app.Write(CatalogueFileName, torn);
        settings.values.manualdb = torn.empty();
        db.InitDB(false);
        EXPECT_EQ(state.DBState, DBStateValue::Initialized) << "not on-line and empty";
        EXPECT_TRUE(std::exchange(db.RebuildDue, false));
        EXPECT_EQ(app.Read(CatalogueFileName), torn);
    }
    EXPECT_TRUE(Logged("tags.mdb is made anew"));
    MakeEmptyCatalogue(app.File(CatalogueFileName));
    db.InitDB(false);
    Add("a.mp3", "T", "A");
    db.Close();
    DamageIndex();
    settings.values.manualdb = true;
    db.InitDB(false);
    EXPECT_EQ(state.DBState, DBStateValue::OnLine) << "the table is whole";
    EXPECT_THROW(db.Records("SELECT Title FROM Media WHERE Artist='A'"), Error);
    EXPECT_TRUE(std::exchange(db.RebuildDue, false));
    EXPECT_EQ(state.DBState, DBStateValue::Initialized);
    EXPECT_FALSE(FileExists(app.File(CatalogueFileName))) << "the server must not trust it";
    ASSERT_EQ(::mkfifo(app.File(CatalogueFileName).c_str(), 0600), 0);
    db.InitDB(false);
    EXPECT_TRUE(db.RebuildDue) << "the server's file takes the place of whatever stands there";
    EXPECT_TRUE(Logged("An error occured in modDB.InitDB no such file"));
    EXPECT_FALSE(db.UnhookDB());
    EXPECT_FALSE(db.RebuildDue) << "once is enough";
    EXPECT_EQ(state.DBState, DBStateValue::Disabled);
    DeleteFileAt(app.File(CatalogueFileName));
    MakeEmptyCatalogue(app.File(CatalogueFileName));
    Database other(app.File(CatalogueFileName), Database::Mode::Create);
    other.Execute("BEGIN EXCLUSIVE");
    db.InitDB(false);
    EXPECT_TRUE(Logged("An error occured in modDB.InitDB database is locked"));
    EXPECT_EQ(state.DBState, DBStateValue::Initialized);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(CatalogueTest, RowsOfAnotherMediaFolderStayOffLine) {
    settings.values.manualdb = true;
    db.InitDB(false);
    Add("a.mp3", "T", "A");
    const std::string here = std::exchange(settings.values.MediaDir, app.Path());
    EXPECT_TRUE(db.OfOtherFolder());
    EXPECT_FALSE(db.StoredTag(app.File("a.mp3")));
    EXPECT_THROW(First("SELECT Path FROM Media"), Error);
    db.UpdateFileRow(app.Write("b.mp3", "x"));
    db.ShowOldRows();
    EXPECT_EQ(state.DBState, DBStateValue::Disabled);
    db.InitDB(false);
    EXPECT_EQ(state.DBState, DBStateValue::Initialized);
    settings.values.MediaDir = here + "/";
    db.InitDB(false);
    EXPECT_EQ(state.DBState, DBStateValue::OnLine);
    EXPECT_THAT(First("SELECT Path FROM Media"), ElementsAre("/a.mp3"));
}

struct OpenCatalogueTest : CatalogueTest {
    OpenCatalogueTest() { db.InitDB(false); }
};

TEST_F(OpenCatalogueTest, ReadsBackWhatItWasGiven) {
    const std::string path =
        Tagged("Rock/O'Hanlon - It's.mp3", "It's 100% \"it\"\n", 1, "O'Hanlon");
    db.UpdateFileRow(path);
    const auto files = db.FolderFiles(media.File("Rock"), false, true);
    ASSERT_THAT(files, SizeIs(1));
    EXPECT_EQ(files[0].path + "|" + files[0].artist + "|" + files[0].title,
              "/Rock/O'Hanlon - It's.mp3|O'Hanlon|It's 100% 'it'");
    EXPECT_THAT(First("SELECT Artist FROM Media WHERE Artist='O\"Hanlon'"),
                ElementsAre("O\"Hanlon"));
    EXPECT_EQ(db.StoredTag(path).value().Genre, "Pop");
    DeleteFileAt(path);
    const MediaTags tags(extensions, reader, &db);
    EXPECT_EQ(tags.GetDBTag(path).Title, "It's 100% 'it'");
    EXPECT_EQ(tags.GetDBTag(media.File("B - T.mp3")).Artist, "B") << "no row: by its name";
}

TEST_F(OpenCatalogueTest, ReadsAFileAgainOnlyWhenItsDateHasChanged) {
    Add("a.mp3", "Old", "A", "Pop");
    Add("a.mp3", "New", "A", "Rock");
    EXPECT_THAT(First("SELECT Title FROM Media"), ElementsAre("Old"));
    Add("a.mp3", "New", "A", "Rock", 1'000'000'001);
    EXPECT_THAT(First("SELECT Title FROM Media"), ElementsAre("New"));
    EXPECT_THAT(First("SELECT Description FROM Genres ORDER BY Description"),
                ElementsAre("(Empty)", "Pop", "Rock"))
        << "genres are never removed";
    EXPECT_EQ(First("SELECT TStamp FROM Media")[0], GetFileDate(media.File("a.mp3")));
    db.UpdateFileRow(media.Write("text.txt", "no media"));
    db.UpdateFileRow(media.File("gone.mp3"));
    EXPECT_THAT(First("SELECT Path FROM Media"), ElementsAre("/a.mp3"));
    EXPECT_TRUE(Logged("An error occured in modDB.UpdateFileRow no such file"));
}

TEST_F(OpenCatalogueTest, OtherKindsOfFilesAreKnownByTheirNames) {
    for (const char* name :
         {"My_Film.avi", "Lists/party.m3u", "presets.lst", "untagged.mp3", "none.mp3"})
        db.UpdateFileRow(media.Write(name, "x"));
    EXPECT_THAT(First("SELECT Title FROM Media WHERE MediaType<>1 ORDER BY MediaType"),
                ElementsAre("My Film", "party", "presets"));
    EXPECT_THAT(First("SELECT Description FROM Genres INNER JOIN Media ON Genres.GenreID = "
                      "Media.GenreID WHERE MediaType<3"),
                ElementsAre("(Empty)", "(Empty)", "(Empty)"));
    const auto playable = db.FolderFiles(media.Path(), true, false);
    ASSERT_THAT(playable, SizeIs(3));
    EXPECT_EQ(playable[1].title, "none");
    EXPECT_THAT(First("SELECT Title FROM Media WHERE Artist='(Unknown Artist)' AND Title LIKE "
                      "'%tag%'"),
                ElementsAre("untagged"))
        << "what is shown is found";
}

TEST_F(OpenCatalogueTest, AnswersTheSystemsQueries) {
    Add("1/a.mp3", "Zwei", "Ärzte", "Rock", 1'000'000'000);
    Add("1/b.mp3", "eins", "ÄRZTE", "rock", 1'100'000'000);
    Add("1/sub/c.mp3", "Drei", "Abba", "Pop", 1'200'000'000);
    Add("10/d.mp3", "Vier", "Björk", "(Empty)", 900'000'000);
    const std::pair<const char*, std::vector<std::string>> answers[] = {
        {"SELECT DISTINCT Artist FROM Media WHERE ((Artist)<>'') ORDER BY Artist",
         {"Abba", "Ärzte", "Björk"}},
        {"SELECT Title, Path FROM Media WHERE Artist='ärzte' ORDER BY Title", {"eins", "Zwei"}},
        {"SELECT TOP 2 Title FROM Media WHERE MediaType=1 ORDER BY TStamp DESC", {"Drei", "eins"}},
        {"SELECT Description, GenreID FROM Genres WHERE Description <> '(Empty)' "
         "ORDER BY Description",
         {"Pop", "Rock"}},
        {"SELECT Title FROM Media WHERE Artist LIKE '%bjork%'", {"Vier"}},
        {"SELECT Media.Title FROM Genres INNER JOIN Media ON Genres.GenreID = Media.GenreID "
         "WHERE (((Genres.Description) Like '%ROCK%')) ORDER BY Title",
         {"eins", "Zwei"}}};
    for (const auto& [sql, cells] : answers)
        EXPECT_EQ(First(sql), cells) << sql;
    EXPECT_THAT(db.FilesBelow(media.File("1")), SizeIs(3)) << "not the folder 10";
    EXPECT_THAT(db.FilesBelow(media.Path()), SizeIs(4));
    const auto named = db.FolderFiles(media.File("1"), false, false);
    ASSERT_THAT(named, SizeIs(2));
    EXPECT_EQ(named[0].title, "eins");
}

TEST_F(OpenCatalogueTest, RefusesWhatIsNoQuery) {
    Add("a.mp3", "T", "A");
    for (const char* sql : {"DELETE FROM Media", "", "SELECT FROM", "SELECT Nothing FROM Media",
                            "SELECT count(*) FROM Media a, Media b; DROP TABLE Media x"}) {
        try {
            db.Records(sql);
        } catch (const Error&) {
        } // refused; a second statement is not looked at
        EXPECT_THAT(First("SELECT Path FROM Media"), SizeIs(1)) << sql;
    }
    EXPECT_THROW(db.Records("SELECT count(*) FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                            "SELECT i + 1 FROM n) SELECT i FROM n)"),
                 Error)
        << "a query without end";
}

TEST_F(OpenCatalogueTest, HostileNamesKeepTheirRows) {
    const std::vector<std::string> names = {"a'b.mp3",    "say \"x\".mp3", "100%_[a-z].mp3",
                                            "l\nine.mp3", "\xE4\xFF.mp3",  "A.mp3",
                                            "a.mp3",      "semi;--.mp3"};
    std::vector<std::string> found;
    for (const std::string& name : names)
        db.UpdateFileRow(media.Write("50%/" + name, "x"));
    for (const CatalogueFile& file : db.FolderFiles(media.File("50%"), false, true))
        found.push_back(FileNameOf(file.path));
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(names));
}

TEST_F(OpenCatalogueTest, APathInAnotherCaseThanTheMediaFolderStaysWhole) {
    settings.values.MediaDir = ToUpper(media.Path());
    const std::string other = media.Write("other.mp3", "x");
    db.UpdateFileRow(other);
    EXPECT_THAT(First("SELECT Path FROM Media"), ElementsAre(other));
}

TEST_F(OpenCatalogueTest, ManyRowsAreWrittenBesideTheInterfaceAlsoWhereTheServersFileComesBetween) {
    const auto write = [this] {
        while (db.WritesRows())
            std::this_thread::yield();
    };
    std::vector<std::string> paths(300);
    for (std::size_t i = 0; i < paths.size(); ++i)
        paths[i] = Tagged(std::to_string(i) + ".mp3", "T");
    CopyFileTo(app.File(CatalogueFileName), app.File(WorkingCatalogueName));
    db.UpdateFileRows(paths);
    EXPECT_TRUE(db.WritesRows());
    state.DBState = DBStateValue::Rebuilding;
    EXPECT_TRUE(db.UnhookDB()) << "while they are being written";
    state.DBState = DBStateValue::Rebuilding;
    EXPECT_FALSE(db.WritesRows()) << "not while the server works";
    state.DBState = DBStateValue::OnLine;
    write();
    EXPECT_THAT(First("SELECT COUNT(*) FROM Media"), ElementsAre("300"));
    db.UpdateFileRows({media.File("gone.mp3"), media.Write("b.m3u", "x")});
    write();
    EXPECT_THAT(First("SELECT COUNT(*) FROM Media"), ElementsAre("301"));
    EXPECT_TRUE(Logged("no such file"));
}

TEST_F(OpenCatalogueTest, TakesTheServersFileAndRepeatsItsOwnUpdates) {
    Add("old.mp3", "Old", "A");
    CopyFileTo(app.File(CatalogueFileName), app.File(WorkingCatalogueName));
    state.DBState = DBStateValue::Rebuilding;
    Add("saved.mp3", "Saved", "A");
    EXPECT_THAT(First("SELECT Title FROM Media"), SizeIs(1)) << "not while the server copies";
    EXPECT_TRUE(db.UnhookDB());
    EXPECT_TRUE(std::exchange(db.Replaced, false));
    db.RunUpdates();
    EXPECT_TRUE(Logged("db checkpoint"));
    EXPECT_THAT(First("SELECT Title FROM Media ORDER BY Title"), ElementsAre("Old", "Saved"));
    EXPECT_FALSE(FileExists(app.File(WorkingCatalogueName)));
    state.DBState = DBStateValue::Rebuilding;
    Add("late.mp3", "Late", "A");
    EXPECT_FALSE(db.UnhookDB()) << "there was no new file";
    EXPECT_FALSE(db.Replaced);
    EXPECT_TRUE(Logged("the old one stays"));
    db.ShowOldRows();
    EXPECT_THAT(First("SELECT Title FROM Media"), SizeIs(3));
    EXPECT_EQ(state.DBState, DBStateValue::OnLine);
    DeleteFileAt(app.File(CatalogueFileName));
    db.InitDB(false);
    db.ShowOldRows();
    EXPECT_EQ(state.DBState, DBStateValue::Disabled) << "no rows: the folders are read";
}

} // namespace
} // namespace vk::test
