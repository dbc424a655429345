#include "settings/extensions_page.h"

namespace vk {

namespace {

constexpr char Ask[] = "Type in a new file extension.  Example: MP3";
constexpr char Before[] = "Are you sure you want to remove ";

} // namespace

Page ExtensionsPage(Base& base, MediaExtensions& extensions, CatalogueUpdates& catalogue) {
    const auto mayChange = [&base, &catalogue] {
        const bool busy = catalogue.Busy();
        if (busy) base.dialogs.ShowMessage("Please wait for the database to finish");
        return !busy;
    };
    const auto changed = [&base, &extensions, &catalogue] {
        const Settings& now = base.settings.values;
        extensions.Load(now.AudioExtensions, now.VideoExtensions);
        catalogue.RequestScan();
    };
    return {.name = "settingsExtensions",
            .tab = "Extensions",
            .rows = {ItemsRow(base.settings, base.dialogs, setting::AudioExtensions,
                              {Ask, Before, " from the list of supported audio extensions?",
                               "Remove Audio Extension", mayChange, changed}),
                     ItemsRow(base.settings, base.dialogs, setting::VideoExtensions,
                              {Ask, Before, " from the list of supported video extensions?",
                               "Remove Video Extension", mayChange, changed})},
            .heading = [] { return std::string("A change starts an update of the database"); }};
}

} // namespace vk
