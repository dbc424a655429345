#include "library/lists/entry_resolver.h"

#include "core/text.h"
#include "library/text/comparison_key.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace vk {

namespace {

constexpr std::size_t MostFolders = 500; // whose names are kept at a time

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    c = Lower(c);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// A "%" that no two digits follow stays.
std::string PercentDecoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escaped = text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
                             HexValue(text[i + 2]) >= 0;
        bytes += escaped ? static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]))
                         : text[i];
        if (escaped) i += 2;
    }
    return bytes;
}

// "file:///m/a.mp3", "file://localhost/m/a.mp3" and "file:/m/a.mp3" are one.
std::string WithoutFileScheme(const std::string& line) {
    std::string_view rest = std::string_view(line).substr(5);
    if (rest.starts_with("//")) {
        rest.remove_prefix(2);
        rest.remove_prefix(std::min(rest.find('/'), rest.size()));
    }
    const bool drive = PathSeparator == '\\' && rest.size() > 2 && rest[2] == ':';
    return std::string(drive ? rest.substr(1) : rest);
}

// The names that a line may mean, the likeliest first; no NUL, which would cut what the file system
// sees.
std::vector<std::string> Readings(const std::string& line) {
    std::vector<std::string> names;
    const auto add = [&](const std::string& name) {
        if (name.find('\0') != std::string::npos) return;
        const std::string ours = PathSeparator == '/' ? ReplaceAll(name, "\\", "/") : name;
        for (const std::string& each : {name, ours})
            if (std::ranges::find(names, each) == names.end()) names.push_back(each);
    };
    const bool scheme = StartsWithNoCase(line, "file:");
    const std::string plain = scheme ? WithoutFileScheme(line) : line;
    add(plain);
    add(ToUtf8(plain));
    if (plain.find('%') == std::string::npos) return names;
    add(PercentDecoded(plain));
    add(ToUtf8(PercentDecoded(plain)));
    return names;
}

std::string FindEntry(const std::string& name, const std::string& folder) {
    if (IsAbsolutePath(name) && FileExists(name)) return name;
    const std::string inFolder = JoinPath(folder, name);
    return FileExists(inFolder) ? inFolder : std::string();
}

} // namespace

bool IsStreamAddress(std::string_view line) {
    const auto end = line.find("://");
    return end != std::string_view::npos && end > 1 && !StartsWithNoCase(line, "file:") &&
           std::ranges::all_of(line.substr(0, end),
                               [](unsigned char c) { return std::isalnum(c) != 0; });
}

std::string ResolveListEntry(const std::string& line, const std::string& folder) {
    for (const std::string& name : Readings(line))
        if (std::string found = FindEntry(name, folder); !found.empty()) return found;
    return {};
}

// A comment is nearly never a name, so that none is looked for.
std::string EntryResolver::Resolve(const std::string& line) {
    std::string found = ResolveListEntry(line, folder_);
    if (!found.empty() || line.starts_with('#') || IsStreamAddress(line)) return found;
    for (const std::string& name : Readings(line))
        if (found = Search(IsAbsolutePath(name) ? name : JoinPath(folder_, name)); !found.empty())
            return found;
    return {};
}

std::string EntryResolver::Search(const std::string& path) {
    const auto root = path.find(PathSeparator);
    if (root == std::string::npos) return {};
    std::string found = path.substr(0, root + 1);
    for (const std::string& part : Split(std::string_view(path).substr(root + 1), PathSeparator)) {
        if (part.empty() || part == ".") continue;
        const std::string here = JoinPath(found, part);
        if (part == ".." || FolderExists(here) || FileExists(here)) {
            found = part == ".." ? FolderOf(found) : here;
            continue;
        }
        const Names& names = NamesIn(found);
        const auto name = names.find(ComparisonKey(ToUtf8(part)));
        if (name == names.end()) return {};
        found = JoinPath(found, name->second);
    }
    return FileExists(found) ? found : std::string();
}

// Of names that differ in nothing else the first in order is meant.
const EntryResolver::Names& EntryResolver::NamesIn(const std::string& folder) {
    if (const auto known = folders_.find(folder); known != folders_.end()) return known->second;
    if (folders_.size() >= MostFolders) folders_.clear();
    Names& names = folders_[folder];
    for (const FolderEntry& entry : ListFolder(folder)) {
        const auto [known, added] = names.emplace(ComparisonKey(ToUtf8(entry.name)), entry.name);
        if (!added) known->second = std::min(known->second, entry.name);
    }
    return names;
}

} // namespace vk
