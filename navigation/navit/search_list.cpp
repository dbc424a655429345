#include "navigation/navit/search_list.h"

namespace vk {

namespace {

constexpr const char* Countries = "country_all";

} // namespace

Task<bool> SearchList::Open() {
    if (!path_.empty()) co_return true;
    Answer<std::optional<std::string>> made(
        [this](NavitBus::Text done) { bus_.NewSearch(std::move(done)); });
    const std::optional<std::string> path = co_await made;
    if (!path) co_return false;
    path_ = *path;
    const std::vector<SearchResult> countries = co_await All(Countries);
    const bool chosen = !countries.empty() && co_await Choose(Countries, 0);
    if (!chosen) path_.clear();
    co_return chosen;
}

Task<std::vector<SearchResult>> SearchList::Find(const char* level, std::string text,
                                                 std::size_t most) {
    return Lines(level, std::move(text), false, most);
}

Task<std::vector<SearchResult>> SearchList::All(const char* level, std::size_t most) {
    return Lines(level, "", true, most);
}

Task<std::vector<SearchResult>> SearchList::Lines(const char* level, std::string text,
                                                  bool beginnings, std::size_t most) {
    std::vector<SearchResult> lines;
    Answer<bool> begun(
        [&](NavitBus::Done done) { bus_.Search(path_, level, text, beginnings, std::move(done)); });
    bool more = co_await begun;
    while (more && lines.size() < most) {
        Answer<std::optional<SearchResult>> next(
            [this](NavitBus::Found done) { bus_.Result(path_, std::move(done)); });
        std::optional<SearchResult> line = co_await next;
        more = line.has_value();
        if (line) lines.push_back(std::move(*line));
    }
    co_return lines;
}

Task<bool> SearchList::Choose(const char* level, std::int32_t id) {
    Answer<bool> chosen(
        [&](NavitBus::Done done) { bus_.Select(path_, level, id, std::move(done)); });
    co_return co_await chosen;
}

} // namespace vk
