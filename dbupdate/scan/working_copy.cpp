#include "dbupdate/scan/working_copy.h"

#include "core/error_report.h"
#include "library/catalogue/schema.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <filesystem>

namespace vk {

namespace {

constexpr std::int64_t UnusedPart = 5; // a fifth

std::int64_t Number(Database& database, std::string_view pragma) {
    Statement statement(database, pragma);
    return statement.Step() ? statement.Integer(0) : 0;
}

/// A copy as of one moment: while there is a reader nothing is written to the file.
void Copy(Database& catalogue, const std::string& from, const std::string& to) {
    Statement reader(catalogue, "SELECT 1 FROM Genres");
    reader.Step();
    std::filesystem::copy_file(from, to);
}

} // namespace

WorkingCopy::WorkingCopy(const std::string& appDir, Database* catalogue)
    : file_(JoinPath(appDir, WorkingCatalogueName)), anew_(catalogue == nullptr) {
    DeleteFileAt(file_);
    try {
        Begin(appDir, catalogue);
    } catch (...) {
        database_.reset();
        DeleteFileAt(file_);
        throw;
    }
}

WorkingCopy::~WorkingCopy() {
    rows_.reset();
    database_.reset();
    if (!finished_) DeleteFileAt(file_);
}

void WorkingCopy::Begin(const std::string& appDir, Database* catalogue) {
    if (catalogue) Copy(*catalogue, JoinPath(appDir, CatalogueFileName), file_);
    database_ = std::make_unique<Database>(file_, Database::Mode::Create);
    // Nobody reads the file before it is complete, and an incomplete one is thrown away: there is
    // nothing to protect until the last flush.
    database_->Execute("PRAGMA journal_mode = OFF");
    database_->Execute("PRAGMA synchronous = OFF");
    database_->Execute("PRAGMA secure_delete = OFF");
    database_->Execute("PRAGMA cache_size = -8000"); // 8 MB, and as much again to sort an index
    database_->Execute("BEGIN EXCLUSIVE");
    anew_ ? CreateTables(*database_) : RebuildIndexes(*database_);
    rows_ = std::make_unique<RowWriter>(*database_);
}

void WorkingCopy::SetDrives(const std::vector<std::string>& drives) {
    database_->Execute("DELETE FROM Drives");
    Statement add(*database_, "INSERT INTO Drives(Path) VALUES(?)");
    for (const std::string& drive : drives)
        add.Bind(1, drive).Run();
}

void WorkingCopy::Finish(const Finishing& finishing) {
    rows_.reset();
    if (anew_) CreateIndexes(*database_);
    if (anew_ || finishing.measure) MeasureIndexes(*database_);
    database_->Execute("COMMIT");
    const bool sparse = Number(*database_, "PRAGMA freelist_count") * UnusedPart >
                        Number(*database_, "PRAGMA page_count");
    if (finishing.compact && sparse) database_->Execute("VACUUM");
    database_.reset();
    if (!FlushFile(file_)) throw Error("cannot write " + file_);
    finished_ = true;
}

} // namespace vk
