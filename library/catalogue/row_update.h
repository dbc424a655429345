// The rows of files that came or changed, beside the whole scans of the server.
#pragma once

#include "library/catalogue/file_row.h"
#include "library/catalogue/schema.h"
#include "library/tags/media_type.h"

#include <optional>
#include <string>
#include <vector>

namespace vk {

/// How the log begins the line of an update that failed.
inline constexpr char UpdateFailed[] = "An error occured in modDB.UpdateFileRow ";

/// What rows are made from; all of it outlives this.
struct RowSource {
    const MediaExtensions& extensions;
    const std::string& mediaDir;
    ID3& reader;
};

/// The row of the file at a full path; nothing for what is no media file and for a file whose date
/// is as catalogued. Throws when there is no such file.
std::optional<FileRow> ChangedRow(Database& database, const RowSource& source,
                                  const std::string& path);

/// Writes rows in one transaction. The first rows of all tell what they were made from: `origin`.
void WriteRows(Database& database, const Origin& origin, const std::vector<FileRow>& rows);

/// How the catalogue is opened by who writes to it: a row is on the disk when its update returns;
/// after a power cut the journal undoes what was half written. A write-ahead log would not survive
/// the exchange of the file below it.
void PrepareToWrite(Database& database);

} // namespace vk
