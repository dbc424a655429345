#include "library/catalogue/collation.h"
#include "library/queries/sql_text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace vk::test {
namespace {

using testing::ElementsAreArray;

TEST(Collation, OrdersLettersBeforeAccentsAndNeverByCase) {
    const std::vector<std::string> ordered = {
        "",       "(a",      "1",     "a", "ä",      "ab",     "Äb",  "abc",   "äbc",   "b",
        "Bjork",  "Björk",   "bjorl", "o", "Ö",      "ø",      "oz",  "Søren", "Sorex", "strasse",
        "Straße", "strasst", "Ünder", "Z", "Ελλαδα", "Ελλάδα", "жар", "Яблоко"};
    std::vector<std::string> sorted = ordered;
    std::ranges::reverse(sorted);
    std::ranges::sort(sorted, [](const auto& a, const auto& b) { return CompareTexts(a, b) < 0; });
    EXPECT_THAT(sorted, ElementsAreArray(ordered));
}

TEST(Collation, TakesTextsThatDifferInCaseAsEqual) {
    const char* equal[][2] = {
        {"Ä", "ä"},     {"ABBA", "Abba"},     {"ÉTÉ", "été"},         {"ΑΒΓ", "αβγ"},
        {"ДОМ", "дом"}, {"STRAẞE", "straße"}, {"u\u0308ber", "Über"}, {"x\u0308", "X\u0308"}};
    for (const auto& [a, b] : equal)
        EXPECT_EQ(CompareTexts(a, b), 0) << a << " " << b;
    const char* different[][2] = {{"a", "ä"}, {"strasse", "straße"}, {"o", "ø"}, {"a", "a "}};
    for (const auto& [a, b] : different) {
        EXPECT_NE(CompareTexts(a, b), 0) << a << " " << b;
        EXPECT_EQ(CompareTexts(a, b) < 0, CompareTexts(b, a) > 0);
    }
}

TEST(Collation, KeepsPathsApartThatDifferInAnyByte) {
    // In order; most of them bytes that are no UTF-8, some of which begin like a mark.
    const std::string paths[] = {"/A.mp3",        "/a.mp3",
                                 "/B.mp3",        "/C.mp3",
                                 "/\xC4.mp3",     "/\xCC\xE0\xF8\xE8\xED\xE0.mp3",
                                 "/\xCC\xFB.mp3", "/\xCD\xE0\xF3.mp3",
                                 "/\xE4.mp3"};
    for (const std::string& a : paths)
        for (const std::string& b : paths)
            EXPECT_EQ(ComparePaths(a, b) < 0, &a < &b) << a << " " << b;
    EXPECT_EQ(ComparePaths("/\xE4.mp3", "/\xE4.mp3"), 0);
}

TEST(Collation, FindsTextsByPattern) {
    const std::tuple<const char*, const char*, bool> cases[] = {{"%ROCK%", "Hard rock", true},
                                                                {"%ä%", "BÄR", true},
                                                                {"%bjork%", "Björk", true},
                                                                {"%jör%", "BJÖRK", true},
                                                                {"a_c", "aÄC", true},
                                                                {"%", "", true},
                                                                {"", "", true},
                                                                {"%a%b%", "xxaxxbxx", true},
                                                                {"%aab", "aaab", true},
                                                                {"_", "ж", true},
                                                                {"%\xFF%", "a\xFF", true},
                                                                {"%rock%", "roc", false},
                                                                {"%ä%", "bar", false},
                                                                {"a_c", "ac", false},
                                                                {"", "a", false},
                                                                {"%a%b%", "ba", false},
                                                                {"a%", "ba", false},
                                                                {"__", "ж", false},
                                                                {"a_", "a\u0308", false}};
    for (const auto& [pattern, text, found] : cases)
        EXPECT_EQ(LikeText(pattern, text), found) << pattern << " on " << text;
}

TEST(SqlText, EscapesByTurningQuotes) {
    EXPECT_EQ(Escape("  O'Hanlon's \n"), "O\"Hanlon\"s");
    EXPECT_EQ(Unescape(" O\"Hanlon\"s "), "O'Hanlon's");
    EXPECT_EQ(Unescape(Escape("say \"it\"")), "say 'it'");
    EXPECT_EQ(Escape(std::string("a\0b%_", 5)), "ab%_");
}

TEST(SqlText, TranslatesWhatSQLiteLacks) {
    const char* cases[][2] = {
        {"SELECT TOP 50 Path FROM Media ORDER BY TStamp DESC",
         "SELECT  Path FROM Media ORDER BY TStamp DESC LIMIT 50"},
        {"SELECT TOP 5 Path FROM Media ; \n", "SELECT  Path FROM Media LIMIT 5"},
        {"SELECT Top FROM Media", "SELECT Top FROM Media"},
        {"SELECT Path FROM Media WHERE Artist=\"O'Hanlon\"",
         "SELECT Path FROM Media WHERE Artist='O\"Hanlon'"},
        {"WHERE Artist='O\"Hanlon' AND Title='a\\b'", "WHERE Artist='O\"Hanlon' AND Title='a\\b'"},
        {"WHERE ParentDir='\\Rock\\' AND Path LIKE '\\Rock\\%'",
         "WHERE ParentDir='/Rock/' AND Path LIKE '/Rock/%'"},
        {"WHERE Path='/a\\b.mp3'", "WHERE Path='/a\\b.mp3'"},
        {"WHERE Title='it''s'", "WHERE Title='it''s'"},
        {"WHERE Title='SELECT TOP 5'", "WHERE Title='SELECT TOP 5'"},
        {"WHERE Title='open", "WHERE Title='open'"},
    };
    for (const auto& [sql, translated] : cases)
        EXPECT_EQ(TranslateQuery(sql), translated);
}

} // namespace
} // namespace vk::test
