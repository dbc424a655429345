// SQLite as the catalogue uses it: a connection, a statement, failures as exceptions. Texts are
// UTF-8, paths the bytes of the file system.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vk {

/// A connection to one catalogue file; closed with the object.
class Database {
  public:
    enum class Mode { ReadOnly, ReadWrite, Create };

    /// Opens `file`, knowing the collations TEXTS and PATHS and a LIKE without regard to case.
    /// Throws when it cannot be opened or is no regular file.
    Database(const std::string& file, Mode mode);

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements that give no records; throws the database's own words.
    void Execute(const std::string& sql);
    /// From now on statements fail after some seconds of work, all together.
    void LimitWork();
    bool InTransaction() const;
    /// Rows that the last statement changed.
    std::int64_t Changes() const;
    sqlite3* Handle() const { return handle_.get(); }

  private:
    struct Close {
        void operator()(sqlite3* handle) const;
    };
    static int CountWork(void* self);

    int workDone_ = 0;
    std::unique_ptr<sqlite3, Close> handle_;
};

/// One prepared statement; only the first of a text is taken. Does not outlive its connection.
class Statement {
  public:
    Statement(Database& database, std::string_view sql);

    /// Parameters count from 1; the texts are copied.
    Statement& Bind(int parameter, std::string_view text);
    Statement& Bind(int parameter, std::int64_t number);
    /// True while there is a record; throws when the statement fails.
    bool Step();
    /// Runs a statement without records and makes it ready for the next time.
    void Run();
    void Reset();

    /// Columns count from 0; a text is valid until the next step.
    std::string_view Text(int column) const;
    std::int64_t Integer(int column) const;
    int Columns() const;
    /// The number of a column by its name without regard to case; -1 for none.
    int ColumnNamed(std::string_view name) const;
    /// False for a statement that would change the file.
    bool ReadOnly() const;

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

} // namespace vk
