#include "library/catalogue/collation.h"

#include "core/error_report.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

namespace vk {

namespace {

/// U+0300 to U+036F, the combining marks that decompositions consist of, as UTF-8.
bool IsMark(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size()) return false;
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(text[at + 1]);
    return Continues(text[at + 1]) && (lead == 0xCC || (lead == 0xCD && next < 0xB0));
}

/// Position of the next letter of a key, marks passed over.
std::size_t SkipMarks(std::string_view key, std::size_t at) {
    while (IsMark(key, at))
        at += 2;
    return at;
}

/// Of keys with the same letters: what has no mark comes first.
int CompareMarks(std::string_view a, std::string_view b) {
    const auto differ = std::ranges::mismatch(a, b).in1 - a.begin();
    const auto at = static_cast<std::size_t>(differ);
    const bool marked = IsMark(a, at), otherMarked = IsMark(b, at);
    return marked == otherMarked ? a.compare(b) : marked ? 1 : -1;
}

int CompareKeys(std::string_view a, std::string_view b) {
    for (std::size_t i = SkipMarks(a, 0), j = SkipMarks(b, 0);;
         i = SkipMarks(a, i + 1), j = SkipMarks(b, j + 1)) {
        if (i == a.size() || j == b.size()) {
            if (i != a.size() || j != b.size()) return i == a.size() ? -1 : 1;
            return CompareMarks(a, b);
        }
        if (a[i] != b[j])
            return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[j]) ? -1 : 1;
    }
}

/// Past one character of a key and its marks.
std::size_t NextCharacter(std::string_view key, std::size_t at) {
    do
        ++at;
    while (at < key.size() && Continues(key[at]));
    return SkipMarks(key, at);
}

/// The matcher on keys: goes back to the last "%" only, which is enough.
bool LikeKey(std::string_view pattern, std::string_view text) {
    std::size_t p = 0, t = 0, star = std::string_view::npos, resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '%') {
            star = p++;
            resume = t;
        } else if (const auto letter = SkipMarks(text, t);
                   p < pattern.size() && pattern[p] == '_' && letter < text.size()) {
            ++p;
            t = NextCharacter(text, letter);
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (IsMark(text, t) && t > 0) {
            t += 2;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '%')
        ++p;
    return p == pattern.size();
}

/// Where the character that holds `at` begins.
std::size_t StartOfCharacter(std::string_view text, std::size_t at) {
    while (at > 0 && at < text.size() && Continues(text[at]))
        --at;
    return at;
}

/// A pattern that is made ready once and matched often.
struct Pattern {
    std::string text, key;
    std::string_view within; ///< what stands between two "%", when there is nothing else

    void Prepare(std::string_view asked) {
        text = asked;
        key = ComparisonKey(asked);
        const auto inner = key.size() < 2 ? "" : std::string_view(key).substr(1, key.size() - 2);
        const bool simple = key.starts_with('%') && key.ends_with('%') &&
                            inner.find_first_of("%_") == std::string_view::npos;
        within = simple ? inner : std::string_view();
    }
    bool Matches(std::string_view textKey) const {
        if (!within.empty() && textKey.find(within) != std::string_view::npos) return true;
        // Only marks can make a match that plain search does not find.
        if (!within.empty() && std::ranges::all_of(textKey, IsAscii)) return false;
        return LikeKey(key, textKey);
    }
};

template<int (*Compare)(std::string_view, std::string_view)>
int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return Compare({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                   {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

std::string_view Argument(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)))
                : std::string_view();
}

void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
    static thread_local Pattern pattern;
    static thread_local std::string key;
    const std::string_view asked = Argument(arguments[0]);
    if (asked != pattern.text) pattern.Prepare(asked);
    key.clear();
    AppendComparisonKey(Argument(arguments[1]), key);
    sqlite3_result_int(context, pattern.Matches(key));
}

} // namespace

int CompareTexts(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    std::size_t i = 0;
    for (; i < common; ++i) {
        if (a[i] == b[i]) continue;
        if (!IsAscii(a[i]) || !IsAscii(b[i])) break;
        const char left = Lower(a[i]), right = Lower(b[i]);
        if (left != right) return left < right ? -1 : 1;
    }
    if (i == a.size() && i == b.size()) return 0;
    i = StartOfCharacter(a, std::min(i, StartOfCharacter(b, i)));
    return CompareKeys(ComparisonKey(a.substr(i)), ComparisonKey(b.substr(i)));
}

int ComparePaths(std::string_view a, std::string_view b) {
    const int result = CompareTexts(a, b);
    return result != 0 ? result : a.compare(b);
}

bool LikeText(std::string_view pattern, std::string_view text) {
    Pattern prepared;
    prepared.Prepare(pattern);
    return prepared.Matches(ComparisonKey(text));
}

void RegisterCollations(sqlite3* handle) {
    constexpr int Utf8 = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const bool done = sqlite3_create_collation(handle, "TEXTS", SQLITE_UTF8, nullptr,
                                               &Collate<CompareTexts>) == SQLITE_OK &&
                      sqlite3_create_collation(handle, "PATHS", SQLITE_UTF8, nullptr,
                                               &Collate<ComparePaths>) == SQLITE_OK &&
                      sqlite3_create_function(handle, "like", 2, Utf8, nullptr, &Like, nullptr,
                                              nullptr) == SQLITE_OK;
    if (!done) throw Error(sqlite3_errmsg(handle));
}

} // namespace vk
