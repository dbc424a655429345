#include "browser/searches.h"

#include "core/text.h"
#include "library/queries/sql_text.h"

#include <array>

namespace vk {

namespace {

/// What tells one search from another.
struct SearchRow {
    const char* title;
    const char* field;
    const char* body; ///< of the descriptor
};

const SearchRow& RowOf(SearchKind kind) {
    static constexpr std::array<SearchRow, 4> rows = {{
        {"Search Artist ", "Artist", "SearchArtist"},
        {"Search Title ", "Title", "SearchTitle"},
        {"Search Genre ", "Genre", "SearchGenre"},
        {"Search Title ", "Path", "SearchPath"},
    }};
    return rows.at(static_cast<std::size_t>(kind));
}

std::string QueryFor(SearchKind kind, const std::string& escaped) {
    if (kind == SearchKind::Genre)
        return "SELECT Media.Path, Media.Artist, Media.Title, Genres.Description FROM Genres "
               "INNER JOIN Media ON Genres.GenreID = Media.GenreID "
               "WHERE (((Genres.Description) Like '%" +
               escaped + "%'))";
    return std::string("SELECT Path, Artist, Title FROM Media WHERE ") + RowOf(kind).field +
           " LIKE '%" + escaped + "%'";
}

} // namespace

std::optional<SearchKind> Searches::KindOf(const std::string& body) {
    for (const SearchKind kind :
         {SearchKind::Artist, SearchKind::Title, SearchKind::Genre, SearchKind::FileName})
        if (body == RowOf(kind).body) return kind;
    return std::nullopt;
}

std::string Searches::TextOf(SearchKind kind, const std::string& argument) {
    const std::string start = std::string(RowOf(kind).field) + "='";
    if (!argument.starts_with(start)) return argument;
    const bool closed = argument.size() > start.size() && argument.ends_with('\'');
    return argument.substr(start.size(), argument.size() - start.size() - (closed ? 1 : 0));
}

void Searches::ShowBack(SearchKind kind) {
    desk_.Start();
    desk_.SetTitle(RowOf(kind).title);
    desk_.rows.AddBackTo(Descriptor::Sql(RowOf(kind).body));
    desk_.Finish();
}

void Searches::ShowSaved(SearchKind kind) {
    const SearchRow& row = RowOf(kind);
    const auto search = [&](const std::string& text) {
        return Descriptor::Sql(row.body, std::string(row.field) + "='" + text + "'");
    };
    desk_.Start();
    desk_.SetTitle(row.title);
    desk_.rows.AddBackTo(Descriptor::Sql("TextSearch"));
    desk_.rows.Add("<New Search>", search(""), searchpic);
    for (const std::string& text : ReadSavedSearches(desk_.needs.base.settings, kind))
        desk_.rows.Add(text, search(text), searchpic);
    desk_.Finish();
}

bool Searches::RunSearch(SearchKind kind, const std::string& text) {
    desk_.ShowBusy("Busy");
    desk_.Start();
    desk_.list.HideDupes = desk_.needs.Options().hideDupeArtist;
    desk_.SetTitle(RowOf(kind).title + std::string(" : ") + text);
    desk_.rows.AddBackTo(Descriptor::Sql(RowOf(kind).body));
    bool found = true;
    desk_.Try("RunSearch", [&] { found = AddFound(kind, text); });
    desk_.Finish();
    return found;
}

bool Searches::AddFound(SearchKind kind, const std::string& text) {
    const auto found = desk_.needs.library.catalogue->Files(QueryFor(kind, Escape(text)));
    if (desk_.AddCatalogueFiles(found) > 0 || desk_.Aborted()) return true;
    desk_.rows.Clear();
    desk_.rows.AddBackTo(Descriptor::Sql("TextSearch"));
    desk_.rows.AddNotice(NothingFound, alertPic);
    return false;
}

void Searches::Remember(SearchKind kind, const std::string& text) {
    std::string reason;
    if (SaveSearch(desk_.needs.base.settings, kind, text, &reason)) return;
    desk_.needs.base.report.Log("the search could not be saved: " + reason);
    desk_.Say("The search could not be saved.");
}

} // namespace vk
