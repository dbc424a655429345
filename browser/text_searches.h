// The way into the text searches of the catalogue, with the text that is typed for them.
#pragma once

#include "browser/lists.h"
#include "skin/text_entry.h"

#include <functional>
#include <optional>
#include <string>

namespace vk {

/// What is given outlives it.
class TextSearches {
  public:
    /// `choose` acts on the selected row.
    TextSearches(BrowserLists& lists, TextEntry& text, std::function<void()> choose)
        : lists_(lists), text_(text), choose_(std::move(choose)) {}

    /// Replaces the list by what a descriptor of the kind `Sql` stands for, be it a list of the
    /// catalogue or a search.
    void Open(const Descriptor& row);
    /// To the menu of the searches, from wherever the user is.
    void Jump();

  private:
    void OpenSearch(SearchKind kind, const std::string& argument);
    void SearchFor(SearchKind kind, const std::string& text);
    void RunSearch(SearchKind kind, const std::string& text);

    BrowserLists& lists_;
    TextEntry& text_;
    std::function<void()> choose_;
};

} // namespace vk
