#include "core/ini_document.h"

#include "core/text.h"
#include "core/utf16.h"

#include <iterator>
#include <utility>

namespace vk {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r\n"; // as Trim takes them

bool Begins(std::string_view line, char sign) {
    const auto at = line.find_first_not_of(Blanks);
    return at != std::string_view::npos && line[at] == sign;
}

// "[name]" with blanks around; text after the bracket is ignored, as the profile calls do.
std::optional<std::string> SectionName(std::string_view line) {
    if (!Begins(line, '[')) return std::nullopt;
    line.remove_prefix(line.find('[') + 1);
    const auto close = line.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return Trim(line.substr(0, close));
}

std::optional<std::string> KeyName(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || Begins(line, ';')) return std::nullopt;
    return Trim(line.substr(0, equals));
}

// A line end inside a name or value would make lines of its own.
std::string OneLine(std::string_view text) {
    return ReplaceAll(ReplaceAll(std::string(text), "\r", " "), "\n", " ");
}

// No line end can be part of a name.
std::string KeyIn(std::string_view section, std::string_view key) {
    return std::string(section) + '\n' + ToLower(key);
}

std::string WithoutQuotes(std::string value) {
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

} // namespace

IniDocument::IniDocument(std::string_view contents, SameSections same) : same_(same) {
    const auto order = Utf16OrderOf(contents);
    order ? TakeLines(Utf16ToUtf8(contents, *order)) : TakeLines(contents);
}

void IniDocument::TakeLines(std::string_view contents) {
    if (contents.starts_with(Utf8Mark)) contents.remove_prefix(Utf8Mark.size());
    while (!contents.empty()) {
        const auto at = contents.find_first_of("\r\n");
        lines_.emplace_back(contents.substr(0, at));
        if (at == std::string_view::npos) return;
        const bool pair = contents.substr(at, 2) == "\r\n";
        contents.remove_prefix(at + (pair ? 2 : 1));
    }
}

// New lines go to the first of equal sections, whether or not the others count.
IniDocument::Index IniDocument::MakeIndex() const {
    Index index;
    index.keys.reserve(lines_.size());
    std::string section;
    Range* range = nullptr;
    bool counts = false;
    for (auto line = lines_.begin(); line != lines_.end(); ++line) {
        if (const auto name = SectionName(*line)) {
            section = ToLower(*name);
            const auto [at, added] = index.sections.try_emplace(section, Range{line, line});
            range = added ? &at->second : nullptr;
            counts = added || same_ == SameSections::AreOne;
        } else if (counts) {
            if (range) range->last = line;
            if (const auto key = KeyName(*line)) index.keys.try_emplace(KeyIn(section, *key), line);
        }
    }
    return index;
}

IniDocument::Index& IniDocument::Find() const {
    if (!index_) index_ = MakeIndex();
    return *index_;
}

bool IniDocument::HasSection(std::string_view section) const {
    return FindSection(section) != nullptr;
}

IniDocument::Range* IniDocument::FindSection(std::string_view section) const {
    auto& sections = Find().sections;
    const auto at = sections.find(ToLower(section));
    return at == sections.end() ? nullptr : &at->second;
}

std::optional<IniDocument::Lines::iterator> IniDocument::FindKey(std::string_view section,
                                                                 std::string_view key) const {
    const auto& keys = Find().keys;
    const auto at = keys.find(KeyIn(ToLower(section), key));
    return at == keys.end() ? std::nullopt : std::optional(at->second);
}

std::optional<std::string> IniDocument::Value(std::string_view section,
                                              std::string_view key) const {
    const auto line = FindKey(section, key);
    if (!line) return std::nullopt;
    const std::string& text = **line;
    return WithoutQuotes(Trim(std::string_view(text).substr(text.find('=') + 1)));
}

void IniDocument::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    const std::string line = OneLine(key) + "=" + OneLine(value);
    if (const auto at = FindKey(section, key)) {
        **at = line;
        return;
    }
    if (Range* range = FindSection(section)) return Append(*range, section, key, line);
    lines_.push_back(OneLine(section).insert(0, 1, '[') + ']');
    lines_.push_back(line);
    index_.reset();
}

// A long file is not taken apart anew for each key that it gets. Blank lines stay at the section's
// end.
void IniDocument::Append(Range& range, std::string_view section, std::string_view key,
                         std::string line) {
    const bool plain = KeyName(line) == std::string(key) && !SectionName(line);
    auto after = range.last;
    while (after != range.head && Trim(*after).empty())
        --after;
    const auto added = lines_.insert(std::next(after), std::move(line));
    if (!plain) return index_.reset();
    if (after == range.last) range.last = added;
    index_->keys.try_emplace(KeyIn(ToLower(section), key), added);
}

bool IniDocument::RemoveKey(std::string_view section, std::string_view key) {
    const auto line = FindKey(section, key);
    if (line) lines_.erase(*line);
    if (line) index_.reset();
    return line.has_value();
}

bool IniDocument::RemoveSection(std::string_view section) {
    const Range* range = FindSection(section);
    if (!range) return false;
    lines_.erase(range->head, std::next(range->last));
    index_.reset();
    return true;
}

std::string IniDocument::Contents() const {
    std::string result;
    for (const std::string& line : lines_)
        result += line + "\r\n";
    return result;
}

} // namespace vk
