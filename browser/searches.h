// The text searches of the catalogue: their menus with the saved texts, and what they find.
#pragma once

#include "browser/list_desk.h"
#include "library/lists/saved_searches.h"

#include <optional>
#include <string>

namespace vk {

/// What is given outlives it.
class Searches {
  public:
    explicit Searches(ListDesk& desk) : desk_(desk) {}

    /// The search that a descriptor's body names ("SearchTitle" and the like), if it names one.
    static std::optional<SearchKind> KindOf(const std::string& body);

    /// The rows for a new search and for each saved one. `SearchArtist` and its like.
    void ShowSaved(SearchKind kind);
    /// The text that an argument such as "Title='...'" asks for; "" asks for a new one.
    static std::string TextOf(SearchKind kind, const std::string& argument);
    /// Only the way back to the saved searches, for while a new text is typed.
    void ShowBack(SearchKind kind);
    /// Lists what holds `text` (UTF-8) in the field of that kind, without regard to case; "%" in it
    /// stands for any text. False when nothing does: the way back leads to the menu of the searches
    /// then.
    bool RunSearch(SearchKind kind, const std::string& text);
    /// Puts a text on top of its saved list; says so when that fails.
    void Remember(SearchKind kind, const std::string& text);

  private:
    bool AddFound(SearchKind kind, const std::string& text);

    ListDesk& desk_;
};

} // namespace vk
