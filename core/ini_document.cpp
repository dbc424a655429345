#include "core/ini_document.h"

#include "core/text.h"
#include "core/utf16.h"

#include <cstdint>
#include <iterator>
#include <utility>

namespace vk {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// As Trim, without a copy: a file may have hundreds of thousands of lines.
std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// "[name]" with blanks around; text after the bracket is ignored, as the profile calls do.
std::optional<std::string_view> SectionName(std::string_view line) {
    line = Trimmed(line);
    if (!line.starts_with('[')) return std::nullopt;
    line.remove_prefix(1);
    const auto close = line.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return Trimmed(line.substr(0, close));
}

std::optional<std::string_view> KeyName(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || Trimmed(line).starts_with(';')) return std::nullopt;
    return Trimmed(line.substr(0, equals));
}

// A line end inside a name or value would make lines of its own.
std::string OneLine(std::string_view text) {
    return ReplaceAll(ReplaceAll(std::string(text), "\r", " "), "\n", " ");
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

// FNV-1a over the small letters; http://www.isthe.com/chongo/tech/comp/fnv/
std::uint64_t Hashed(std::string_view text, std::uint64_t hash) {
    for (const char c : text) {
        const bool capital = c >= 'A' && c <= 'Z';
        hash = (hash ^ static_cast<std::uint8_t>(capital ? c | 0x20 : c)) * 1099511628211u;
    }
    return hash;
}

} // namespace

bool IniDocument::Name::operator==(const Name& other) const {
    return EqualNoCase(key, other.key) && EqualNoCase(section, other.section);
}

// No line end can be part of a name.
std::size_t IniDocument::NameHash::operator()(const Name& name) const {
    constexpr std::uint64_t Basis = 14695981039346656037u;
    return static_cast<std::size_t>(Hashed(name.key, Hashed("\n", Hashed(name.section, Basis))));
}

IniDocument::IniDocument(std::string_view contents, SameSections same) : same_(same) {
    const auto order = Utf16OrderOf(contents);
    read_ = std::make_shared<const std::string>(order ? Utf16ToUtf8(contents, *order)
                                                      : std::string(contents));
    TakeLines(*read_);
}

void IniDocument::TakeLines(std::string_view contents) {
    if (contents.starts_with(Utf8Mark)) contents.remove_prefix(Utf8Mark.size());
    while (!contents.empty()) {
        std::size_t at = 0;
        while (at < contents.size() && contents[at] != '\r' && contents[at] != '\n')
            ++at;
        lines_.emplace_back(contents.substr(0, at));
        if (at == contents.size()) return;
        const bool pair = contents.substr(at, 2) == "\r\n";
        contents.remove_prefix(at + (pair ? 2 : 1));
    }
}

// New lines go to the first of equal sections, whether or not the others count.
IniDocument::Index IniDocument::MakeIndex() const {
    Index index;
    index.keys.reserve(lines_.size());
    std::string_view section;
    Range* range = nullptr;
    bool counts = false;
    for (auto line = lines_.begin(); line != lines_.end(); ++line) {
        if (const auto name = SectionName(line->text)) {
            section = *name;
            const auto [at, added] = index.sections.try_emplace({section, {}}, Range{line, line});
            range = added ? &at->second : nullptr;
            counts = added || same_ == SameSections::AreOne;
        } else if (counts) {
            if (range) range->last = line;
            if (const auto key = KeyName(line->text)) index.keys.try_emplace({section, *key}, line);
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
    const auto at = sections.find({section, {}});
    return at == sections.end() ? nullptr : &at->second;
}

std::optional<IniDocument::Lines::iterator> IniDocument::FindKey(std::string_view section,
                                                                 std::string_view key) const {
    const auto& keys = Find().keys;
    const auto at = keys.find({section, key});
    return at == keys.end() ? std::nullopt : std::optional(at->second);
}

std::optional<std::string> IniDocument::Value(std::string_view section,
                                              std::string_view key) const {
    const auto line = FindKey(section, key);
    if (!line) return std::nullopt;
    const std::string_view text = (*line)->text;
    return std::string(WithoutQuotes(Trimmed(text.substr(text.find('=') + 1))));
}

// The index names a key by the text of its line, so that it goes before that text does.
void IniDocument::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    std::string line = OneLine(key) + "=" + OneLine(value);
    if (const auto at = FindKey(section, key)) {
        auto entry = index_->keys.extract({section, key});
        (*at)->Write(std::move(line));
        entry.key().key = KeyName((*at)->text).value_or(std::string_view());
        index_->keys.insert(std::move(entry));
        return;
    }
    if (Range* range = FindSection(section)) return Append(*range, key, std::move(line));
    Insert(lines_.end(), OneLine(section).insert(0, 1, '[') + ']');
    Insert(lines_.end(), std::move(line));
    index_.reset();
}

IniDocument::Lines::iterator IniDocument::Insert(Lines::iterator before, std::string line) {
    const auto added = lines_.emplace(before, std::string_view());
    added->Write(std::move(line));
    return added;
}

// A long file is not taken apart anew for each key that it gets. Blank lines stay at the section's
// end.
void IniDocument::Append(Range& range, std::string_view key, std::string line) {
    const bool plain = KeyName(line) == key && !SectionName(line);
    auto after = range.last;
    while (after != range.head && Trimmed(after->text).empty())
        --after;
    const auto added = Insert(std::next(after), std::move(line));
    if (!plain) return index_.reset();
    if (after == range.last) range.last = added;
    index_->keys.try_emplace({*SectionName(range.head->text), *KeyName(added->text)}, added);
}

bool IniDocument::RemoveKey(std::string_view section, std::string_view key) {
    const auto line = FindKey(section, key);
    if (!line) return false;
    index_.reset();
    lines_.erase(*line);
    return true;
}

bool IniDocument::RemoveSection(std::string_view section) {
    const Range* found = FindSection(section);
    if (!found) return false;
    const Range range = *found;
    index_.reset();
    lines_.erase(range.head, std::next(range.last));
    return true;
}

std::string IniDocument::Contents() const {
    std::string result;
    if (read_) result.reserve(read_->size() + lines_.size());
    for (const Line& line : lines_)
        result.append(line.text).append("\r\n");
    return result;
}

} // namespace vk
