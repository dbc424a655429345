// Builds the browser's lists: folders, folders with all that is below them, playlists and the
// applications.
#pragma once

#include "browser/drives.h"
#include "browser/list_desk.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vk {

/// Each operation replaces the rows of the list and ends with its `LoadList`. What it is given
/// outlives it.
class ListBuilder {
  public:
    explicit ListBuilder(ListDesk& desk)
        : desk_(desk), drives_(desk.needs.settings, desk.needs.volumes) {}

    /// The list of `CurrentPath` in the present mode. A folder that is gone gives way to the media
    /// folder.
    void Populate();
    /// All files in and below a folder.
    void RecurseFolder(const std::string& path);
    /// The existing files of a playlist.
    void ReadList(const std::string& path);

    const DriveRules& Drives() const { return drives_; }
    /// Asks the configured disc drive where its disc is now and whether it is ready and keeps the
    /// answer in `CDReady`.
    bool CheckDisc();

    bool BrowsingCD = false;        ///< the current folder is on the disc drive
    bool BrowsingRemovable = false; ///< it is on a removable drive

  private:
    /// A row of the top level: offered when `condition` holds.
    struct TopRow {
        bool (ListBuilder::*condition)() const;
        void (ListBuilder::*add)();
    };
    /// What one folder holds, as full paths.
    struct Contents {
        std::vector<std::string> folders, files;
        bool discRow = false; ///< a row for a video disc was added
    };
    // populate.cpp
    void PopulateFolder();
    void TitleFolder(const std::string& path);
    Contents Walk(const std::string& path);
    bool TakeDiscVideo(const std::string& path, const std::string& name, Contents& contents);
    std::optional<std::vector<CatalogueFile>> CataloguedFiles();
    void AddFiles(const Contents& contents);
    // top_rows.cpp
    void AddTopRows();
    bool OffersDatabase() const { return desk_.needs.CatalogueOnLine(); }
    bool OffersDisc() const;
    bool OffersFavorites() const;
    bool OffersPresets() const;
    bool OffersChannels() const;
    bool NotBuilding() const { return !desk_.Building(); }
    void AddDatabase();
    void AddDiscDrive();
    void AddRemovableDrives();
    void AddNewPlaylist();
    void AddFavorites();
    void AddPresets();
    void AddXM();
    // special_lists.cpp
    void AddEditRow(const std::string& path);
    std::int32_t AddEntries(const std::string& path);
    void PopulateApplications();
    void Recurse(const std::string& folder, std::vector<std::string>& files,
                 std::set<std::string>& seen);
    // list_builder.cpp
    bool AddPlainFiles(const std::vector<std::string>& files);
    bool OtherDrive() const { return BrowsingCD || BrowsingRemovable; }
    void MarkPlace(const std::string& path);
    std::string ParentOf(const std::string& folder) const;
    bool AtTop() const { return desk_.needs.state.CurrentPath == desk_.needs.MediaDir(); }

    ListDesk& desk_;
    DriveRules drives_;
};

} // namespace vk
