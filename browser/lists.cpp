#include "browser/lists.h"

#include "browser/applications.h"

namespace vk {

namespace {

constexpr int MountSeconds = 6; ///< more than it takes to mount a disc

} // namespace

void BrowserLists::Populate() {
    const bool applications = desk.needs.state.ListMode == ListApplications;
    desk.view.SetButton(BrowserButton::Applications, applications ? "lists.gif" : "gps.gif");
    catalogueShown_ = desk.needs.CatalogueOnLine();
    if (applications) return PopulateApplications(desk);
    if (desk.Building() && editor.file.OfChannels()) return xm.ShowAllChannels();
    folders.Populate();
    if (place.AtTop()) discShown_ = DiscHere();
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

// A disc of files that is not mounted cannot be browsed.
std::string BrowserLists::DiscHere() const {
    const std::string& drive = place.Drives().DiscDrive();
    return desk.needs.base.state.CDReady && place.IsThere(drive) ? drive : std::string();
}

// The contents of a disc that is offered are not read over and over.
bool BrowserLists::DiscChanged() {
    if (desk.Building() || !place.Drives().HasDiscDrive()) return false;
    const bool ready = place.CheckDisc();
    const bool known = ready && discShown_ == place.Drives().DiscDrive();
    const bool here = known || !DiscHere().empty();
    unread_ = ready && !here ? unread_ + 1 : 0;
    if (unread_ == MountSeconds) desk.Say("The disc in the drive cannot be read.");
    return here ? !known : !discShown_.empty();
}

void BrowserLists::Follow() {
    if (!AtTopLevel() || desk.Saying()) return;
    if (desk.needs.CatalogueOnLine() == catalogueShown_ && !DiscChanged()) return;
    desk.Run("Timer2", [this] {
        const std::string selected = desk.list.GetSelectedFileName();
        Populate();
        desk.SelectMatch(selected);
    });
}

} // namespace vk
