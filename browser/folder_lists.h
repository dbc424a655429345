// The lists of folders: one folder's, and that of all that is below one.
#pragma once

#include "browser/browsed_place.h"
#include "browser/top_rows.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vk {

/// Each operation replaces the rows of the list. What it is given outlives it.
class FolderLists {
  public:
    FolderLists(ListDesk& desk, BrowsedPlace& place)
        : desk_(desk), place_(place), top_(desk, place) {}

    /// The list of `CurrentPath`. A folder that is gone gives way to the media folder.
    void Populate();
    /// All files in and below a folder.
    void RecurseFolder(const std::string& path);

  private:
    /// What one folder holds, as full paths.
    struct Contents {
        std::vector<std::string> folders, files;
        bool discRow = false; ///< a row for a video disc was added
    };
    void FindFolder();
    void AddFolder(const std::string& path);
    void Title(const std::string& path);
    Contents Walk(const std::string& path);
    void AddTracks(const std::string& path, std::vector<std::string>& files) const;
    bool TakeDiscVideo(const std::string& path, const std::string& name, Contents& contents);
    std::optional<std::vector<CatalogueFile>> CataloguedFiles();
    void AddFiles(const Contents& contents);
    bool AddPlainFiles(const std::vector<std::string>& files);
    bool AddBelow(const std::string& path);
    void Recurse(const std::string& folder, std::vector<std::string>& files,
                 std::set<std::string>& seen);

    ListDesk& desk_;
    BrowsedPlace& place_;
    TopRows top_;
};

} // namespace vk
