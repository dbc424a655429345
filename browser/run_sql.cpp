// Choosing rows of the catalogue's lists, and the way into its text searches.
#include "browser/browser.h"
#include "core/text.h"

namespace vk {

void Browser::OpenSql(const RowDescriptor& row) {
    builder_.BrowsingCD = builder_.BrowsingRemovable = false;
    desk_.SqlView = true;
    if (const auto kind = Searches::KindOf(row.body)) return OpenSearch(*kind, row.argument);
    sqlLists_.Show(row, list_.GetSelectedItemText());
}

void Browser::OpenSearch(SearchKind kind, const std::string& argument) {
    if (argument.empty()) return searches_.ShowSaved(kind);
    const std::string text = Searches::TextOf(kind, argument);
    if (!text.empty()) return searches_.RunSearch(kind, text);
    searches_.ShowBack(kind);
    ShowOSK("", "", static_cast<KeyboardPurposeValue>(kind));
}

// The text from the keyboard; without one the search menu comes back.
void Browser::SearchFor(const std::string& text) {
    HideOSK();
    if (Trim(text).empty()) {
        list_.SelectItem(0);
        return Choose();
    }
    const auto kind = static_cast<SearchKind>(KeyboardPurpose);
    searches_.RunSearch(kind, text);
    if (!desk_.Aborted()) searches_.Remember(kind, text);
}

void Browser::JumpToSearch() {
    if (KeyboardShown || needs_.state.ListMode == ListApplications) return;
    if (desk_.Building() && editor_.OfChannels()) return; // the catalogue knows none
    CloseToolFrame();
    Run("JumpToSearch", [&] {
        if (!needs_.CatalogueOnLine()) return desk_.Say("The media database is not available.");
        // As if it had been walked to, so that the ways back lead where they say.
        if (RightListFocus) FocusRight(false);
        if (!desk_.Building()) BrowseHistory = "SQL:BrowseAll/SQL:TextSearch";
        OpenSql(SplitDescriptor("SQL:TextSearch"));
    });
}

} // namespace vk
