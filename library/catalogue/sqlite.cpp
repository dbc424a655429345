#include "library/catalogue/sqlite.h"

#include "core/error_report.h"
#include "core/text.h"
#include "library/catalogue/collation.h"

#include <sqlite3.h>

#include <filesystem>

namespace vk {

namespace {

// The other process writes for milliseconds at most. The interface must not stand still, and waits
// for no longer than a slow disk takes for the rows of files that are being copied.
constexpr int BusyMs = 5000, InterfaceBusyMs = 1000;
// A query of a list file can be anything, such as a product of the table with itself.
constexpr int StepsAWorkUnit = 1'000'000; // of SQLite's virtual machine: some 10 ms
constexpr int MostWorkUnits = 30;

[[noreturn]] void Fail(sqlite3* database) {
    throw Error(sqlite3_errmsg(database), sqlite3_errcode(database));
}

int Flags(Database::Mode mode) {
    switch (mode) {
    case Database::Mode::ReadOnly:
        return SQLITE_OPEN_READONLY;
    case Database::Mode::ReadWrite:
        return SQLITE_OPEN_READWRITE;
    case Database::Mode::Create:
        break;
    }
    return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
}

sqlite3* OpenHandle(const std::string& file, Database::Mode mode) {
    std::error_code ignored;
    // A pipe would never answer.
    if (mode != Database::Mode::Create && !std::filesystem::is_regular_file(file, ignored))
        throw Error("no such file: " + file, SQLITE_CANTOPEN);
    sqlite3* handle = nullptr;
    if (sqlite3_open_v2(file.c_str(), &handle, Flags(mode), nullptr) == SQLITE_OK) return handle;
    const std::string reason = handle ? sqlite3_errmsg(handle) : "out of memory";
    sqlite3_close(handle);
    throw Error(reason, SQLITE_CANTOPEN);
}

std::string_view ColumnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text ? std::string_view(
                      text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
                : std::string_view();
}

} // namespace

void Database::Close::operator()(sqlite3* handle) const {
    // A statement that is still there goes on with the connection, but not with this object.
    sqlite3_progress_handler(handle, 0, nullptr, nullptr);
    sqlite3_close_v2(handle);
}

Database::Database(const std::string& file, Mode mode) : handle_(OpenHandle(file, mode)) {
    sqlite3_busy_timeout(Handle(), mode == Mode::ReadWrite ? InterfaceBusyMs : BusyMs);
    RegisterCollations(Handle());
}

void Database::Execute(const std::string& sql) {
    if (sqlite3_exec(Handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(Handle());
}

void Database::LimitWork() {
    workDone_ = 0;
    sqlite3_progress_handler(Handle(), StepsAWorkUnit, &Database::CountWork, this);
}

int Database::CountWork(void* self) {
    return ++static_cast<Database*>(self)->workDone_ > MostWorkUnits;
}

bool Database::InTransaction() const {
    return sqlite3_get_autocommit(Handle()) == 0;
}

std::int64_t Database::Changes() const {
    return sqlite3_changes64(Handle());
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql) : database_(database.Handle()) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()), &prepared,
                           nullptr) != SQLITE_OK)
        Fail(database_);
    if (!prepared) throw Error("an empty statement");
    statement_.reset(prepared);
}

Statement& Statement::Bind(int parameter, std::string_view text) {
    if (sqlite3_bind_text(statement_.get(), parameter, text.data() ? text.data() : "",
                          static_cast<int>(text.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        Fail(database_);
    return *this;
}

Statement& Statement::Bind(int parameter, std::int64_t number) {
    if (sqlite3_bind_int64(statement_.get(), parameter, number) != SQLITE_OK) Fail(database_);
    return *this;
}

bool Statement::Step() {
    switch (sqlite3_step(statement_.get())) {
    case SQLITE_ROW:
        return true;
    case SQLITE_DONE:
        return false;
    default:
        Fail(database_);
    }
}

void Statement::Run() {
    Step();
    Reset();
}

void Statement::Reset() {
    sqlite3_reset(statement_.get());
}

std::string_view Statement::Text(int column) const {
    return ColumnText(statement_.get(), column);
}

std::int64_t Statement::Integer(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

int Statement::Columns() const {
    return sqlite3_column_count(statement_.get());
}

int Statement::ColumnNamed(std::string_view name) const {
    for (int i = 0; i < Columns(); ++i) {
        const char* own = sqlite3_column_name(statement_.get(), i);
        if (own && EqualNoCase(own, name)) return i;
    }
    return -1;
}

bool Statement::ReadOnly() const {
    return sqlite3_stmt_readonly(statement_.get()) != 0;
}

} // namespace vk
