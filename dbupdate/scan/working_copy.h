// The file that the server writes.
#pragma once

#include "library/catalogue/file_row.h"
#include "library/catalogue/schema.h"
#include "library/catalogue/sqlite.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

/// tags_work.mdb in the application directory, begun as a copy of tags.mdb or anew; one transaction
/// from its making to `Finish`. Without `Finish` it is removed again.
class WorkingCopy {
  public:
    /// `catalogue`, when not null, is the open tags.mdb, which is copied. Throws on failure.
    WorkingCopy(const std::string& appDir, Database* catalogue);
    ~WorkingCopy();
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;

    RowWriter& Rows() { return *rows_; }
    /// Notes what the rows are made from.
    void SetOrigin(const Origin& origin) { vk::SetOrigin(*database_, origin); }
    /// Puts the drives that rows lie on in place of those of the last time.
    void SetDrives(const std::vector<std::string>& drives);
    struct Finishing {
        bool compact; ///< rewrite the file when a good part of it is unused
        bool measure; ///< so much has changed that the indexes are to be measured anew
    };
    /// Completes the file and flushes it to the disk. Throws on failure.
    void Finish(const Finishing& finishing);

  private:
    void Begin(const std::string& appDir, Database* catalogue);

    const std::string file_;
    const bool anew_;
    bool finished_ = false;
    std::unique_ptr<Database> database_;
    std::unique_ptr<RowWriter> rows_;
};

} // namespace vk
