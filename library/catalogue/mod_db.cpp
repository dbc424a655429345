#include "library/catalogue/mod_db.h"

#include "library/catalogue/row_update.h"
#include "library/catalogue/schema.h"
#include "library/queries/sql_text.h"
#include "library/tags/file_name_tag.h"
#include "library/tags/media_type.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

namespace {

constexpr int ClosedObject = 3704;

} // namespace

std::string modDB::File(const char* name) const {
    return needs_.settings.File(name);
}

void modDB::InitDB(bool keep) {
    AppState& app = needs_.app;
    const bool manual = needs_.settings.values.manualdb;
    Close();
    if (!FileExists(File(CatalogueFileName)) && CopyTemplate() && !manual)
        app.DBState = DBStateValue::CheckPoint;
    if (!FileExists(File(CatalogueFileName))) {
        app.DBState = DBStateValue::Disabled;
        return needs_.report.Log("There is no tags.mdb: " + WhyThereIsNone());
    }
    const bool usable = TryToOpen() && !OfOtherFolder();
    if (usable && manual) {
        if (!keep) app.DBState = DBStateValue::OnLine;
    } else if (!usable || app.DBState != DBStateValue::CheckPoint || !keep) {
        app.DBState = DBStateValue::Initialized;
    }
}

std::string modDB::WhyThereIsNone() const {
    if (FolderExists(File(CatalogueFileName))) return "a folder is in its place";
    const bool hasTemplate = FileExists(needs_.settings.Shipped(EmptyCatalogueName));
    return hasTemplate ? "it cannot be written" : std::string(EmptyCatalogueName) + " is missing";
}

void modDB::Open() {
    auto opened = std::make_unique<Database>(File(CatalogueFileName), Database::Mode::ReadWrite);
    PrepareToWrite(*opened);
    CheckCatalogue(*opened);
    origin_ = OriginOf(*opened);
    database_ = std::move(opened);
}

// All that is in it can be read from the files again: the server makes a new one, which takes this
// one's place, be it damaged, locked or of a kind that cannot be opened at all.
bool modDB::TryToOpen() {
    try {
        Open();
        return true;
    } catch (const std::exception& error) {
        needs_.report.Log(std::string("An error occured in modDB.InitDB ") + error.what());
        needs_.report.Log("tags.mdb is made anew");
        // A damaged one's journal must not meet the new file.
        if (IsDamage(error)) DeleteFileAt(File("tags.mdb-journal"));
        RebuildDue = true;
        return false;
    }
}

Origin modDB::WantedOrigin() const {
    const Settings& values = needs_.settings.values;
    return {WithoutTrailingSeparator(values.MediaDir), values.ExtendedTags};
}

bool modDB::OfOtherFolder() const {
    return database_ && !origin_.folder.empty() && origin_.folder != WantedOrigin().folder;
}

bool modDB::ServerWorks() const {
    const DBStateValue state = State();
    return state == DBStateValue::Rebuilding || state == DBStateValue::CheckPoint;
}

template<class Work> auto modDB::Guarded(const Work& work) {
    const Database* const read = database_.get();
    try {
        return work();
    } catch (const std::exception& error) {
        if (IsDamage(error) && database_.get() == read && !ServerWorks()) GiveUp(error);
        throw;
    }
}

// Reading it once more is of no use to the server: it must not find the file.
void modDB::GiveUp(const std::exception& damage) {
    needs_.report.Log(damage.what());
    needs_.report.Log("tags.mdb is made anew");
    Close();
    DeleteFileAt(File(CatalogueFileName));
    DeleteFileAt(File("tags.mdb-journal"));
    needs_.app.DBState = DBStateValue::Initialized;
    RebuildDue = true;
}

bool modDB::CopyTemplate() {
    const std::string empty = needs_.settings.Shipped(EmptyCatalogueName);
    return FileExists(empty) && CopyFileTo(empty, File(CatalogueFileName));
}

bool modDB::UnhookDB() {
    needs_.report.Log("db checkpoint");
    Close();
    const bool taken = RenameFlushed(File(WorkingCatalogueName), File(CatalogueFileName));
    if (!taken) needs_.report.Log("the new tags.mdb could not be taken; the old one stays");
    InitDB(true);
    // Once is enough: a place where no catalogue can be is done without until the next start.
    if (!IsOpen() && std::exchange(RebuildDue, false)) needs_.app.DBState = DBStateValue::Disabled;
    Replaced = Replaced || taken;
    return taken;
}

void modDB::ShowOldRows() {
    needs_.app.DBState = DBStateValue::Disabled;
    TrapAndLog(needs_.report, "An error occured in modDB.ShowOldRows ", [&] {
        if (database_ && !OfOtherFolder() && CountFiles(*database_) > 0)
            needs_.app.DBState = DBStateValue::OnLine;
    });
    RunUpdates();
}

// Rows of another folder would be taken for files of this one that have the same names.
Database& modDB::Opened() {
    if (!database_ || OfOtherFolder())
        throw Error("Operation is not allowed when the object is closed.", ClosedObject);
    return *database_;
}

Statement modDB::Query(const std::string& sql) {
    Opened().LimitWork();
    Statement query(*database_, TranslateQuery(sql));
    if (!query.ReadOnly()) throw Error("not a query: " + sql);
    return query;
}

std::string modDB::ParentDirOf(const std::string& folder) const {
    const std::string& mediaDir = needs_.settings.values.MediaDir;
    return Escape(RelativePath(mediaDir, JoinPath(folder, {PathSeparator})));
}

std::vector<CatalogueFile> modDB::FolderFiles(const std::string& folder, bool playableOnly,
                                              bool sortByFilename) {
    std::string sql = "SELECT Path, Artist, Title, MediaType FROM Media WHERE ParentDir='" +
                      ParentDirOf(folder) + "' ";
    if (playableOnly) sql += "AND (MediaType=1 OR MediaType=3 OR MediaType=2) ";
    return Files(sql + (sortByFilename ? "ORDER BY Path" : "ORDER BY Artist, Title, Path"));
}

std::vector<CatalogueFile> modDB::FilesBelow(const std::string& folder) {
    // Not LIKE: a folder's name may hold the operator's own signs.
    const std::string parent = ParentDirOf(folder);
    return Files("SELECT Path, Artist, Title FROM Media WHERE ParentDir IN (SELECT DISTINCT "
                 "ParentDir FROM Media WHERE substr(ParentDir, 1, length('" +
                 parent + "'))='" + parent + "') ORDER BY Path");
}

std::vector<CatalogueFile> modDB::Files(const std::string& sql) {
    std::vector<CatalogueFile> files;
    EachFile(sql, [&](const CatalogueFile& file) {
        files.push_back(file);
        return true;
    });
    return files;
}

// The connection may be closed by an event: it lives on for the statement.
void modDB::EachFile(const std::string& sql,
                     const std::function<bool(const CatalogueFile&)>& take) {
    Guarded([&] {
        Statement query = Query(sql);
        while (query.Step() && take(ReadFile(query)))
            ;
    });
}

CatalogueFile modDB::ReadFile(const Statement& record) const {
    const auto column = [&](std::string_view name) {
        const int number = record.ColumnNamed(name);
        return number < 0 ? std::string_view() : record.Text(number);
    };
    CatalogueFile file{StoredPath(column("Path")), Unescape(column("Artist")),
                       Unescape(column("Title"))};
    if (file.artist.empty() && file.title.empty()) {
        // A file without tags is shown by its name.
        const TagRecord tag = GetFileNameTag(file.path, GetMediaType(needs_.extensions, file.path));
        file.artist = tag.Artist;
        file.title = tag.Title;
    }
    return file;
}

/// The path of a file; a double quote that stands for itself is told from one that stands for an
/// apostrophe by looking which file is there.
std::string modDB::StoredPath(std::string_view stored) const {
    std::string path = Unescape(stored);
    const std::string& mediaDir = needs_.settings.values.MediaDir;
    if (path == stored || FileExists(JoinPath(mediaDir, path))) return path;
    const std::string literal(stored);
    return FileExists(JoinPath(mediaDir, literal)) ? literal : path;
}

std::vector<CatalogueRecord> modDB::Records(const std::string& sql) {
    return Guarded([&] {
        Statement query = Query(sql);
        std::vector<CatalogueRecord> records;
        while (query.Step()) {
            CatalogueRecord& record = records.emplace_back();
            for (int i = 0; i < query.Columns(); ++i)
                record.emplace_back(query.Text(i));
        }
        return records;
    });
}

std::optional<TagRecord> modDB::StoredTag(const std::string& path) {
    try {
        const bool usable = database_ && !OfOtherFolder();
        return usable ? Guarded([&] { return FindTag(path); }) : std::nullopt;
    } catch (const std::exception& error) {
        needs_.report.Log(std::string("An error occured in modDB.GetDBTag ") + error.what());
        return std::nullopt;
    }
}

std::optional<TagRecord> modDB::FindTag(const std::string& path) {
    Statement query(Opened(), "SELECT Media.Title, Media.Artist, Media.Album, Genres.Description "
                              "FROM Genres INNER JOIN Media ON Genres.GenreID = Media.GenreID "
                              "WHERE Media.Path=?");
    query.Bind(1, Escape(RelativePath(needs_.settings.values.MediaDir, path)));
    if (!query.Step()) return std::nullopt;
    TagRecord tag;
    tag.Title = Unescape(query.Text(0));
    tag.Artist = Unescape(query.Text(1));
    tag.Album = Unescape(query.Text(2));
    tag.Genre = Unescape(query.Text(3));
    if (tag.Title.empty() && tag.Artist.empty()) return std::nullopt;
    return tag;
}

void modDB::UpdateFileRow(const std::string& path) {
    // The server would lock a writer out while it copies the file, and its own is coming.
    if (ServerWorks()) return due_.push_back(path);
    if (!database_ || OfOtherFolder()) return;
    TrapAndLog(needs_.report, UpdateFailed, [&] { Guarded([&] { Put(path); }); });
}

void modDB::Put(const std::string& path) {
    const RowSource source{needs_.extensions, needs_.settings.values.MediaDir, needs_.reader};
    const auto row = ChangedRow(Opened(), source, path);
    if (!row) return;
    WriteRows(*database_, WantedOrigin(), {*row});
    origin_ = OriginOf(*database_);
}

void modDB::RunUpdates() {
    for (const std::string& path : std::exchange(due_, {}))
        UpdateFileRow(path);
    WritesRows();
}

bool modDB::WritesRows() {
    if (rows_.Writing()) return true;
    TrapAndLog(needs_.report, UpdateFailed, [&] {
        Guarded([&] { rows_.Finish(); });
        if (database_ && origin_.folder.empty()) origin_ = OriginOf(*database_);
    });
    if (rows_.Empty() || ServerWorks()) return false;
    const bool usable = database_ && !OfOtherFolder();
    usable ? rows_.Begin(Place()) : rows_.Clear();
    return usable;
}

RowQueue::Place modDB::Place() const {
    return {File(CatalogueFileName), needs_.extensions,        needs_.settings.values.MediaDir,
            WantedOrigin(),          needs_.app.DecimalSymbol, needs_.reader.Log()};
}

} // namespace vk
