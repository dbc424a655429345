#include "library/catalogue/row_update.h"

#include "core/error_report.h"
#include "library/catalogue/date_stamp.h"
#include "library/queries/sql_text.h"

namespace vk {

std::optional<FileRow> ChangedRow(Database& database, const RowSource& source,
                                  const std::string& path) {
    const int type = GetMediaType(source.extensions, path);
    if (type == MediaUnknown) return std::nullopt;
    const std::string relative = RelativePath(source.mediaDir, path);
    const std::string stamp = GetFileDate(path);
    if (stamp.empty()) throw Error("no such file: " + path);
    Statement known(database, "SELECT TStamp FROM Media WHERE Path=?");
    known.Bind(1, Escape(relative));
    if (known.Step() && known.Text(0) == stamp) return std::nullopt;
    return MakeFileRow(source.reader, path, relative, stamp, type);
}

void WriteRows(Database& database, const Origin& origin, const std::vector<FileRow>& rows) {
    database.Execute("BEGIN IMMEDIATE");
    try {
        if (OriginOf(database).folder.empty()) SetOrigin(database, origin);
        RowWriter writer(database);
        for (const FileRow& row : rows)
            writer.Put(row);
        database.Execute("COMMIT");
    } catch (...) {
        // The failure may have ended the transaction by itself.
        if (database.InTransaction()) database.Execute("ROLLBACK");
        throw;
    }
}

void PrepareToWrite(Database& database) {
    database.Execute("PRAGMA journal_mode = DELETE");
    database.Execute("PRAGMA synchronous = FULL");
    database.Execute("PRAGMA cache_size = -8000"); // 8 MB
}

} // namespace vk
