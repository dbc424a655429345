#include "library/catalogue/schema.h"

#include "core/error_report.h"
#include "platform/files.h"

#include <sqlite3.h>

namespace vk {

namespace {

// Raised also when the rows of before would be made otherwise now: all files are read again then.
constexpr int Layout = 5;

constexpr char Tables[] =
    "CREATE TABLE Genres(GenreID INTEGER PRIMARY KEY,"
    " Description TEXT NOT NULL UNIQUE COLLATE TEXTS);"
    "CREATE TABLE Media(Path TEXT NOT NULL UNIQUE COLLATE PATHS, TStamp TEXT NOT NULL,"
    " Title TEXT NOT NULL COLLATE TEXTS, Artist TEXT NOT NULL COLLATE TEXTS,"
    " Album TEXT NOT NULL COLLATE TEXTS, GenreID INTEGER NOT NULL, MediaType INTEGER NOT NULL,"
    " ParentDir TEXT NOT NULL COLLATE PATHS, Track INTEGER NOT NULL);"
    "CREATE TABLE Drives(Path TEXT PRIMARY KEY COLLATE PATHS);"
    "CREATE TABLE Origin(Folder TEXT NOT NULL, ExtendedTags INTEGER NOT NULL);"
    "INSERT INTO Genres(Description) VALUES('(Empty)');";

constexpr char Indexes[] = "CREATE INDEX MediaParentDir ON Media(ParentDir);"
                           "CREATE INDEX MediaArtist ON Media(Artist);"
                           "CREATE INDEX MediaGenre ON Media(GenreID);"
                           "CREATE INDEX MediaNew ON Media(TStamp) WHERE MediaType=1;"
                           // Of one kind it gives the rows as they were written.
                           "CREATE INDEX MediaKind ON Media(MediaType);";

std::int64_t Number(Database& database, std::string_view sql) {
    Statement statement(database, sql);
    return statement.Step() ? statement.Integer(0) : 0;
}

} // namespace

void CreateTables(Database& database) {
    database.Execute(Tables);
    database.Execute("PRAGMA user_version = " + std::to_string(Layout));
}

void CreateIndexes(Database& database) {
    database.Execute(Indexes);
}

void RebuildIndexes(Database& database) {
    database.Execute("REINDEX");
}

void MeasureIndexes(Database& database) {
    database.Execute("ANALYZE");
}

void MakeEmptyCatalogue(const std::string& file) {
    const std::string made = file + ".made";
    DeleteFileAt(made);
    {
        Database database(made, Database::Mode::Create);
        CreateTables(database);
        CreateIndexes(database);
    }
    const bool copied = CopyFileTo(made, file);
    DeleteFileAt(made);
    if (!copied) throw Error("cannot write " + file);
}

void CheckCatalogue(Database& database) {
    const bool own = Number(database, "PRAGMA user_version") == Layout &&
                     Number(database, "SELECT count(*) FROM sqlite_master WHERE type='table' AND"
                                      " name IN ('Genres', 'Media', 'Drives', 'Origin')") == 4;
    if (!own) throw Error("a catalogue of another layout", SQLITE_NOTADB);
    Number(database, "SELECT count(*) FROM (SELECT 1 FROM Media INNER JOIN Genres"
                     " ON Genres.GenreID = Media.GenreID LIMIT 1)");
}

Origin OriginOf(Database& database) {
    Statement stored(database, "SELECT Folder, ExtendedTags FROM Origin");
    if (!stored.Step()) return {};
    return {std::string(stored.Text(0)), stored.Integer(1) != 0};
}

void SetOrigin(Database& database, const Origin& origin) {
    database.Execute("DELETE FROM Origin");
    Statement add(database, "INSERT INTO Origin(Folder, ExtendedTags) VALUES(?,?)");
    add.Bind(1, origin.folder).Bind(2, std::int64_t{origin.extendedTags}).Run();
}

bool IsDamage(const std::exception& error) {
    const int number = ErrorNumber(error);
    return number == SQLITE_NOTADB || number == SQLITE_CORRUPT || number == SQLITE_IOERR;
}

std::int64_t CountFiles(Database& database) {
    return Number(database, "SELECT count(*) FROM Media");
}

} // namespace vk
