// The lists that can be on show, and where the user is among them.
#pragma once

#include "browser/browse_trail.h"
#include "browser/browsed_place.h"
#include "browser/folder_lists.h"
#include "browser/list_editor.h"
#include "browser/playlist_reader.h"
#include "browser/searches.h"
#include "browser/sql_lists.h"
#include "browser/xm_lists.h"

namespace vk {

/// What is given outlives it.
class BrowserLists {
  public:
    BrowserLists(ListDesk& shared, ListModel& right)
        : desk(shared), place(shared), folders(shared, place), playlists(shared, place),
          sql(shared), searches(shared), xm(shared), editor(shared, xm, right) {}

    /// The list of `CurrentPath` in the present mode.
    void Populate();
    /// The same as if nothing had been chosen on the way there.
    void PopulateAnew();
    /// The top level offers the catalogue and the disc as soon as they can be browsed, and only so
    /// long: called every second. Of a disc that cannot be read it is said once.
    void Follow();

    ListDesk& desk;
    BrowseTrail trail;
    BrowsedPlace place;
    FolderLists folders;
    PlaylistReader playlists;
    SqlLists sql;
    Searches searches;
    XMLists xm;
    ListEditor editor;

  private:
    bool AtTopLevel() const;
    std::string DiscHere() const;
    bool DiscChanged();

    bool catalogueShown_ = false; ///< the catalogue was on line when the list was built
    std::string discShown_;       ///< the root of the disc then; "" without one
    int unread_ = 0;              ///< seconds since there is a disc that cannot be browsed
};

} // namespace vk
