#include "core/ini_document.h"

#include "core/text.h"
#include "core/utf16.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// "[name]" with blanks around; text after the bracket is ignored, as the profile calls do.
std::optional<std::string> SectionName(std::string_view line) {
    const std::string trimmed = Trim(line);
    const auto close = trimmed.find(']');
    if (trimmed.empty() || trimmed[0] != '[' || close == std::string::npos) return std::nullopt;
    return Trim(std::string_view(trimmed).substr(1, close - 1));
}

std::optional<std::string> KeyName(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || Trim(line).starts_with(';')) return std::nullopt;
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
    std::string section;
    Range* range = nullptr;
    bool counts = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (const auto name = SectionName(lines_[i])) {
            section = ToLower(*name);
            const auto [at, added] = index.sections.try_emplace(section, Range{i + 1, i + 1});
            range = added ? &at->second : nullptr;
            counts = added || same_ == SameSections::AreOne;
        } else if (counts) {
            if (range) range->end = i + 1;
            if (const auto key = KeyName(lines_[i]))
                index.keys.try_emplace(KeyIn(section, *key), i);
        }
    }
    return index;
}

const IniDocument::Index& IniDocument::Find() const {
    if (!index_) index_ = MakeIndex();
    return *index_;
}

bool IniDocument::HasSection(std::string_view section) const {
    return FindSection(section).has_value();
}

std::optional<IniDocument::Range> IniDocument::FindSection(std::string_view section) const {
    const auto& sections = Find().sections;
    const auto at = sections.find(ToLower(section));
    return at == sections.end() ? std::nullopt : std::optional(at->second);
}

std::optional<std::size_t> IniDocument::FindKey(std::string_view section,
                                                std::string_view key) const {
    const auto& keys = Find().keys;
    const auto at = keys.find(KeyIn(ToLower(section), key));
    return at == keys.end() ? std::nullopt : std::optional(at->second);
}

std::optional<std::string> IniDocument::Value(std::string_view section,
                                              std::string_view key) const {
    const auto line = FindKey(section, key);
    if (!line) return std::nullopt;
    const std::string& text = lines_[*line];
    return WithoutQuotes(Trim(std::string_view(text).substr(text.find('=') + 1)));
}

void IniDocument::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    const std::string line = OneLine(key) + "=" + OneLine(value);
    if (const auto at = FindKey(section, key)) {
        lines_[*at] = line;
        return;
    }
    auto range = FindSection(section);
    if (!range) {
        lines_.push_back(OneLine(section).insert(0, 1, '[') + ']');
        range = Range{lines_.size(), lines_.size()};
    }
    std::size_t end = range->end;
    while (end > range->begin && Trim(lines_[end - 1]).empty())
        --end;
    Insert(end, section, key, line);
}

// A long file is not taken apart anew for each key that it gets.
void IniDocument::Insert(std::size_t at, std::string_view section, std::string_view key,
                         std::string line) {
    const bool plain = KeyName(line) == std::string(key) && !SectionName(line);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
    if (!plain || !index_) return index_.reset();
    const auto own = index_->sections.find(ToLower(section));
    if (own == index_->sections.end()) return index_.reset();
    for (auto& [name, range] : index_->sections) {
        range.begin += range.begin > at ? 1u : 0u;
        range.end += range.end > at ? 1u : 0u;
    }
    own->second.end = std::max(own->second.end, at + 1);
    for (auto& [name, place] : index_->keys)
        place += place >= at ? 1u : 0u;
    index_->keys.try_emplace(KeyIn(own->first, key), at);
}

bool IniDocument::RemoveKey(std::string_view section, std::string_view key) {
    const auto line = FindKey(section, key);
    if (line) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*line));
    index_.reset();
    return line.has_value();
}

bool IniDocument::RemoveSection(std::string_view section) {
    const auto range = FindSection(section);
    if (!range) return false;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(range->begin) - 1,
                 lines_.begin() + static_cast<std::ptrdiff_t>(range->end));
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
