// The rows that stand above the folders of the media folder.
#pragma once

#include "browser/browsed_place.h"

namespace vk {

/// What it is given outlives it.
class TopRows {
  public:
    TopRows(ListDesk& desk, const BrowsedPlace& place) : desk_(desk), place_(place) {}

    /// Adds those that there is something behind and that the mode wants.
    void Add();

  private:
    /// Offered when `condition` holds.
    struct Row {
        bool (TopRows::*condition)() const;
        void (TopRows::*add)();
    };
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

    ListDesk& desk_;
    const BrowsedPlace& place_;
};

} // namespace vk
