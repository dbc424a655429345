#include "settings/appearance_page.h"

#include "core/text.h"
#include "platform/files.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::string_view SkinEnding = ".skn";

// The skins that are there, by their names without the ending.
std::vector<Option> Skins(const std::string& folder) {
    std::vector<Option> skins;
    for (const FolderEntry& entry : ListFolder(folder))
        if (!entry.isFolder && EqualNoCase(LastBytes(entry.name, SkinEnding.size()), SkinEnding))
            skins.emplace_back(entry.name,
                               entry.name.substr(0, entry.name.size() - SkinEnding.size()));
    std::ranges::sort(skins);
    return skins;
}

} // namespace

Page AppearancePage(SettingsStore& store) {
    const auto skins = [&store, found = std::vector<Option>()]() mutable {
        if (found.empty()) found = Skins(store.Shipped("skins"));
        return found;
    };
    return {
        .name = "settingsAppearance",
        .tab = "Appearance",
        .rows = {ChoiceRow(store, setting::CurrentSkin, skins),
                 ChoiceRow(store, setting::CurrentNTSkin, skins), TimeRow(store, setting::Time1),
                 TimeRow(store, setting::Time2), StepperRow(store, setting::ListSpacing),
                 ToggleRow(store, setting::numberedList), ToggleRow(store, setting::ShowSelBar),
                 ToggleRow(store, setting::hideDupeArtist), ToggleRow(store, setting::ShowClock),
                 ToggleRow(store, setting::CleanMenu), ToggleRow(store, setting::UseScaling),
                 ToggleRow(store, setting::hidemouse), ToggleRow(store, setting::SortByFilename),
                 ToggleRow(store, setting::ExtendedTags), ToggleRow(store, setting::DoResume),
                 ToggleRow(store, setting::safevolume), StepperRow(store, setting::safevol_value),
                 StepperRow(store, setting::mutespeed)},
        .heading = [] { return std::string("These settings count when you leave with Done"); }};
}

} // namespace vk
