#include "browser/lists.h"

#include "browser/applications.h"

namespace vk {

void BrowserLists::Populate() {
    const bool applications = desk.needs.state.ListMode == ListApplications;
    desk.view.SetButton(BrowserButton::Applications, applications ? "lists.gif" : "gps.gif");
    catalogueShown_ = desk.needs.CatalogueOnLine();
    if (applications) return PopulateApplications(desk);
    if (desk.Building() && editor.file.OfChannels()) return xm.ShowAllChannels();
    folders.Populate();
}

void BrowserLists::PopulateAnew() {
    desk.SqlView = false;
    trail.Clear();
    Populate();
}

bool BrowserLists::AtTopLevel() const {
    return desk.needs.state.ListMode != ListApplications && !desk.rows.HasBack() &&
           !desk.PlaylistView && !desk.XMView;
}

void BrowserLists::FollowCatalogue() {
    if (desk.needs.CatalogueOnLine() == catalogueShown_ || !AtTopLevel() || desk.Saying()) return;
    desk.Run("Timer2", [this] {
        const std::string selected = desk.list.GetSelectedFileName();
        Populate();
        desk.SelectMatch(selected);
    });
}

} // namespace vk
