#include "settings/appearance_page.h"

#include "skin/skin_about.h"

#include <utility>

namespace vk {

namespace {

constexpr int PreviewLines = 3; // of the page

// A picture of each skin, its name, and what it is used for.
Row SkinRow(SettingsStore& store, const SkinAbout& skin) {
    const auto choose = [&store, file = skin.file](const Setting<std::string>& setting) {
        return [&store, file, &setting] { store.Set(setting, file); };
    };
    const auto text = [&store, skin] {
        const Settings& s = store.values;
        const bool day = s.CurrentSkin == skin.file, night = s.CurrentNTSkin == skin.file;
        return skin.name + (skin.author.empty() ? "" : "\nby " + skin.author) +
               (day && night ? "\nday and night"
                : day        ? "\nday"
                : night      ? "\nnight"
                             : "");
    };
    return {
        .text = text,
        .ends = {{"Day", choose(setting::CurrentSkin)}, {"Night", choose(setting::CurrentNTSkin)}},
        .width = Row::Whole,
        .pictureFile = skin.picture,
        .changes = {&setting::CurrentSkin, &setting::CurrentNTSkin}};
}

Row Then(Row row, const std::function<void()>& after) {
    for (Row::End& end : row.ends)
        end.use = [use = std::move(end.use), after] {
            use();
            after();
        };
    return row;
}

} // namespace

Page AppearancePage(SettingsStore& store, const std::function<void()>& skinChanged,
                    std::function<const PagePicture&()> preview) {
    std::vector<Row> rows;
    for (const SkinAbout& skin : SkinsIn(store.Shipped("skins")))
        rows.push_back(Then(SkinRow(store, skin), skinChanged));
    for (const auto* time : {&setting::Time1, &setting::Time2})
        rows.push_back(Then(TimeRow(store, *time), skinChanged));
    rows.front().sheet = "Skins";
    Row picture = PictureRow(std::move(preview), Row::Half, PreviewLines);
    picture.sheet = "Looks";
    for (Row row :
         {std::move(picture), StepperRow(store, setting::ListSpacing),
          ToggleRow(store, setting::ShowSelBar), ToggleRow(store, setting::ShowClock),
          ToggleRow(store, setting::CleanMenu), ToggleRow(store, setting::UseScaling),
          ToggleRow(store, setting::numberedList), ToggleRow(store, setting::hideDupeArtist),
          ToggleRow(store, setting::hidemouse), ToggleRow(store, setting::UseAnimation),
          ToggleRow(store, setting::MovShowBar), ToggleRow(store, setting::SortByFilename),
          ToggleRow(store, setting::ExtendedTags), ToggleRow(store, setting::DoResume),
          ToggleRow(store, setting::safevolume), StepperRow(store, setting::safevol_value),
          StepperRow(store, setting::mutespeed)})
        rows.push_back(std::move(row));
    return {
        .name = "settingsAppearance", .tab = "Appearance", .rows = std::move(rows), .heading = [] {
            return std::string("A skin is shown at once, the rest when you leave with Done");
        }};
}

} // namespace vk
