#include "browser/top_rows.h"

#include "core/text.h"
#include "library/lists/presets.h"
#include "platform/files.h"

#include <array>

namespace vk {

void TopRows::Add() {
    static constexpr std::array<Row, 7> table = {{
        {&TopRows::OffersDatabase, &TopRows::AddDatabase},
        {&TopRows::OffersDisc, &TopRows::AddDiscDrive},
        {&TopRows::NotBuilding, &TopRows::AddRemovableDrives},
        {&TopRows::NotBuilding, &TopRows::AddNewPlaylist},
        {&TopRows::OffersFavorites, &TopRows::AddFavorites},
        {&TopRows::OffersPresets, &TopRows::AddPresets},
        {&TopRows::OffersChannels, &TopRows::AddXM},
    }};
    for (const Row& row : table)
        if ((this->*row.condition)()) (this->*row.add)();
}

// A disc of files that is not mounted cannot be browsed.
bool TopRows::OffersDisc() const {
    return NotBuilding() && desk_.needs.base.state.CDReady &&
           place_.IsThere(place_.Drives().DiscDrive());
}

bool TopRows::OffersFavorites() const {
    return NotBuilding() && FileExists(desk_.needs.base.settings.File("favorites.m3u"));
}

void TopRows::AddDatabase() {
    desk_.rows.Add("Browse Database", Descriptor::Sql("BrowseAll"), searchpic);
}

bool TopRows::OffersPresets() const {
    const bool wanted = !desk_.Building() && desk_.needs.state.ListMode != ListFromAudio;
    return wanted && FileExists(desk_.needs.base.settings.File(PresetsName));
}

bool TopRows::OffersChannels() const {
    return desk_.needs.Options().xmpcr_enabled && !desk_.Building();
}

void TopRows::AddDiscDrive() {
    desk_.rows.Add("Browse CD/DVD drive", Descriptor::Path(place_.Drives().DiscDrive()), cdromPic);
}

void TopRows::AddRemovableDrives() {
    for (const std::string& root : place_.Drives().RemovableDrives())
        desk_.rows.Add("Browse Removable Drive " + ToUtf8(root), Descriptor::Path(root), hddpic);
}

void TopRows::AddNewPlaylist() {
    desk_.rows.Add("Build a new PlayList", Descriptor::Edit(""), playlistpic);
}

void TopRows::AddFavorites() {
    desk_.rows.Add("Favorites", Descriptor::File(desk_.needs.base.settings.File("favorites.m3u")),
                   playlistpic);
}

void TopRows::AddPresets() {
    desk_.rows.Add("Edit Preset Radio Stations",
                   Descriptor::File(desk_.needs.base.settings.File(PresetsName)), playlistpic);
}

void TopRows::AddXM() {
    desk_.rows.Add("XM Presets & Categories", Descriptor::XM(), xmdefault);
}

} // namespace vk
