// What the screens ask of the catalogue of the media folder.
#pragma once

#include "core/app_state.h"
#include "library/tags/tag_record.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// One file as the catalogue knows it.
struct CatalogueFile {
    std::string path; ///< relative to the media folder, with a separator in front
    std::string artist;
    std::string title;
};

/// One record of a query: its columns in the order of the SELECT, as they are stored (escaped).
using CatalogueRecord = std::vector<std::string>;

/// The catalogue; where there is none its users hold a null pointer. A query that cannot be run
/// throws an `Error`.
class Catalogue {
  public:
    virtual ~Catalogue() = default;
    /// Rows may be shown only while it is `OnLine`.
    virtual DBStateValue State() const = 0;
    /// The files of one folder below the media folder in the order they are shown: by path when
    /// `sortByFilename`, else by artist and title. `playableOnly` leaves out what is no audio,
    /// video or playlist.
    virtual std::vector<CatalogueFile> FolderFiles(const std::string& folder, bool playableOnly,
                                                   bool sortByFilename) = 0;
    /// The files of a folder and of all folders below it.
    virtual std::vector<CatalogueFile> FilesBelow(const std::string& folder) = 0;
    /// The files of any query that selects Path and, where it likes, Artist and Title.
    virtual std::vector<CatalogueFile> Files(const std::string& sql) = 0;
    /// The same one by one, until `take` returns false. Events may run in it, whatever they do to
    /// the catalogue: the files are those of the moment of the query.
    virtual void EachFile(const std::string& sql,
                          const std::function<bool(const CatalogueFile&)>& take) = 0;
    /// The records of any query, for lists of artists, albums and genres.
    virtual std::vector<CatalogueRecord> Records(const std::string& sql) = 0;
    /// What is catalogued of the file at a full path; nothing when it has no row. Never throws.
    virtual std::optional<TagRecord> StoredTag(const std::string& path) = 0;
    /// Adds or updates the row of the file at a full path; a file whose date is as catalogued is
    /// not read again. Never throws.
    virtual void UpdateFileRow(const std::string& path) = 0;
    /// The same for many files, beside the interface: they are written as long as `WritesRows` is
    /// asked, now and then.
    virtual void UpdateFileRows(const std::vector<std::string>& paths) = 0;
    /// True while rows are on their way; those that wait for a scan's end are not.
    virtual bool WritesRows() = 0;
};

} // namespace vk
