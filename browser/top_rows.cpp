// The rows that stand above the folders of the media folder.
#include "browser/list_builder.h"
#include "core/text.h"
#include "library/lists/presets.h"
#include "platform/files.h"

#include <array>

namespace vk {

void ListBuilder::AddTopRows() {
    static constexpr std::array<TopRow, 7> table = {{
        {&ListBuilder::OffersDatabase, &ListBuilder::AddDatabase},
        {&ListBuilder::OffersDisc, &ListBuilder::AddDiscDrive},
        {&ListBuilder::NotBuilding, &ListBuilder::AddRemovableDrives},
        {&ListBuilder::NotBuilding, &ListBuilder::AddNewPlaylist},
        {&ListBuilder::OffersFavorites, &ListBuilder::AddFavorites},
        {&ListBuilder::OffersPresets, &ListBuilder::AddPresets},
        {&ListBuilder::OffersChannels, &ListBuilder::AddXM},
    }};
    for (const TopRow& row : table)
        if ((this->*row.condition)()) (this->*row.add)();
}

// A disc that is not mounted cannot be browsed.
bool ListBuilder::OffersDisc() const {
    return NotBuilding() && desk_.needs.app.CDReady && FolderExists(drives_.DiscDrive());
}

bool ListBuilder::OffersFavorites() const {
    return NotBuilding() && FileExists(desk_.needs.settings.File("favorites.m3u"));
}

void ListBuilder::AddDatabase() {
    desk_.rows.Add("Browse Database", "SQL:BrowseAll", searchpic);
}

bool ListBuilder::OffersPresets() const {
    const bool wanted = !desk_.Building() && desk_.needs.state.ListMode != ListFromAudio;
    return wanted && FileExists(desk_.needs.settings.File(PresetsName));
}

bool ListBuilder::OffersChannels() const {
    return desk_.needs.settings.values.xmpcr_enabled && !desk_.Building();
}

void ListBuilder::AddDiscDrive() {
    desk_.rows.Add("Browse CD/DVD drive", "PATH:" + drives_.DiscDrive(), cdromPic);
}

void ListBuilder::AddRemovableDrives() {
    for (const std::string& root : drives_.RemovableDrives())
        desk_.rows.Add("Browse Removable Drive " + ToUtf8(root), "PATH:" + root, hddpic);
}

void ListBuilder::AddNewPlaylist() {
    desk_.rows.Add("Build a new PlayList", "EDIT:", playlistpic);
}

void ListBuilder::AddFavorites() {
    desk_.rows.Add("Favorites", "FILE:" + desk_.needs.settings.File("favorites.m3u"), playlistpic);
}

void ListBuilder::AddPresets() {
    desk_.rows.Add("Edit Preset Radio Stations", "FILE:" + desk_.needs.settings.File(PresetsName),
                   playlistpic);
}

void ListBuilder::AddXM() {
    desk_.rows.Add("XM Presets & Categories", "XM:", xmdefault);
}

} // namespace vk
