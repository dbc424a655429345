#include "browser/text_searches.h"

#include "core/text.h"

namespace vk {

void TextSearches::Open(const Descriptor& row) {
    lists_.place.Leave();
    lists_.desk.SqlView = true;
    if (const auto kind = Searches::KindOf(row.body)) return OpenSearch(*kind, row.argument);
    lists_.sql.Show(row, lists_.desk.list.GetSelectedItemText());
}

void TextSearches::OpenSearch(SearchKind kind, const std::string& argument) {
    if (argument.empty()) return lists_.searches.ShowSaved(kind);
    const std::string text = Searches::TextOf(kind, argument);
    if (!text.empty()) return RunSearch(kind, text);
    lists_.searches.ShowBack(kind);
    text_.Open({.caption = {},
                .value = {},
                .answer = [this, kind](const std::optional<std::string>& typed) {
                    lists_.desk.Run("UCKeyboard_OK", [&] { SearchFor(kind, typed.value_or("")); });
                }});
}

// Without a text the saved searches come back.
void TextSearches::SearchFor(SearchKind kind, const std::string& text) {
    if (Trim(text).empty()) {
        lists_.desk.list.SelectItem(0);
        return choose_();
    }
    RunSearch(kind, text);
    if (!lists_.desk.Aborted()) lists_.searches.Remember(kind, text);
}

// From a search without finds the way back passes the saved texts over: the row that it leads to is
// that of the kind of search.
void TextSearches::RunSearch(SearchKind kind, const std::string& text) {
    if (!lists_.searches.RunSearch(kind, text) && !lists_.desk.Building()) lists_.trail.Pop();
}

// As if it had been walked to, so that the ways back lead where they say.
void TextSearches::Jump() {
    ListDesk& desk = lists_.desk;
    if (desk.Building() && lists_.editor.file.OfChannels()) return; // the catalogue knows none
    if (!desk.needs.CatalogueOnLine()) return desk.Say("The media database is not available.");
    if (!desk.Building()) {
        lists_.trail.Clear();
        lists_.trail.Push(Descriptor::Sql("BrowseAll"));
        lists_.trail.Push(Descriptor::Sql("TextSearch"));
    }
    Open(Descriptor::Sql("TextSearch"));
}

} // namespace vk
