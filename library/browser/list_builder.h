// Builds the browser's lists: folders, folders with all that is below them, playlists and the
// applications.
#pragma once

#include "library/browser/browser_needs.h"
#include "library/browser/browser_view.h"
#include "library/browser/drives.h"
#include "library/browser/list_rows.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// Each operation replaces the rows of the list and ends with its `LoadList`. Events run between
/// rows, with `ListBusy` set; `Abort` makes the build end early with the rows it has.
class ListBuilder {
  public:
    ListBuilder(BrowserNeeds& needs, ListModel& list, BrowserView& view)
        : needs_(needs), list_(list), view_(view), rows_(list, needs.settings),
          drives_(needs.settings, needs.volumes) {}

    /// The list of `CurrentPath` in the present mode. A folder that is gone gives way to the media
    /// folder.
    void Populate();
    /// All files in and below a folder.
    void RecurseFolder(const std::string& path);
    /// The existing files of a playlist.
    void ReadList(const std::string& path);

    /// Sets the heading.
    void SetTitle(const std::string& title);
    const std::string& Title() const { return title_; }

    void Abort() { aborted_ = true; }
    /// True once after an `Abort`.
    bool TakeAborted() { return std::exchange(aborted_, false); }
    /// Runs events; false when the build is to end.
    bool Pulse();

    const ListRows& Rows() const { return rows_; }
    const DriveRules& Drives() const { return drives_; }
    /// Asks the configured disc drive whether it is ready and keeps the answer in `CDReady`.
    bool CheckDisc();

    bool BrowsingCD = false;        ///< the current folder is on the disc drive
    bool BrowsingRemovable = false; ///< it is on a removable drive
    bool PlaylistView = false;      ///< the rows are a playlist's
    std::string ParentName;         ///< the folder whose rows came from the catalogue, "" otherwise

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
    void AddFiles(const Contents& contents);
    // top_rows.cpp
    void AddTopRows();
    bool OffersDisc() const { return needs_.app.CDReady; }
    bool OffersFavorites() const;
    bool Always() const { return true; }
    void AddDiscDrive();
    void AddRemovableDrives();
    void AddFavorites();
    // special_lists.cpp
    void PopulateApplications();
    void Recurse(const std::string& folder, std::vector<std::string>& files,
                 std::set<std::string>& seen);
    // list_builder.cpp
    bool AddCatalogueFiles(const std::vector<CatalogueFile>& files);
    bool AddPlainFiles(const std::vector<std::string>& files);
    bool Showable(const std::string& path) const;
    bool OtherDrive() const { return BrowsingCD || BrowsingRemovable; }
    void MarkPlace(const std::string& path);
    std::string ParentOf(const std::string& folder) const;
    bool AtTop() const { return needs_.state.CurrentPath == needs_.MediaDir(); }
    void Start();
    void Finish();

    BrowserNeeds& needs_;
    ListModel& list_;
    BrowserView& view_;
    ListRows rows_;
    DriveRules drives_;
    std::string title_;
    bool aborted_ = false;
};

} // namespace vk
