#include "library/list_file.h"

#include "core/text.h"
#include "library/utf16.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

std::string FindEntry(const std::string& name, const std::string& folder) {
    const std::string inFolder = JoinPath(folder, name);
    if (IsAbsolutePath(name) && FileExists(name)) return name;
    return FileExists(inFolder) ? inFolder : std::string();
}

std::vector<std::string> SplitLines(std::string_view contents) {
    if (contents.starts_with(ByteOrderMark)) contents.remove_prefix(ByteOrderMark.size());
    std::vector<std::string> lines;
    while (!contents.empty()) {
        const auto end = std::min(contents.find_first_of("\r\n"), contents.size());
        std::string line = Trim(contents.substr(0, end));
        if (!line.empty()) lines.push_back(std::move(line));
        contents.remove_prefix(std::min(end + 1, contents.size()));
    }
    return lines;
}

} // namespace

std::vector<std::string> ListLines(std::string_view contents) {
    const auto order = Utf16OrderOf(contents);
    return order ? SplitLines(Utf16ToUtf8(contents, *order)) : SplitLines(contents);
}

std::string ResolveListEntry(const std::string& line, const std::string& folder) {
    // A NUL would cut the name that the file system sees.
    if (line.find('\0') != std::string::npos) return {};
    const std::string utf8 = ToUtf8(line);
    for (const std::string& name : {line, utf8}) {
        std::string found = FindEntry(name, folder);
        if (found.empty() && PathSeparator == '/')
            found = FindEntry(ReplaceAll(name, "\\", "/"), folder);
        if (!found.empty()) return found;
    }
    return {};
}

std::vector<std::string> ReadListFile(const std::string& path) {
    std::vector<std::string> found;
    for (const std::string& line : ListLines(ReadWholeFile(path, ListFileLimit).value_or(""))) {
        std::string entry = ResolveListEntry(line, FolderOf(path));
        if (!entry.empty()) found.push_back(std::move(entry));
    }
    return found;
}

bool FitsListLine(std::string_view entry) {
    using namespace std::string_view_literals;
    return entry.find_first_of("\r\n\0"sv) == std::string_view::npos;
}

bool WriteListFile(const std::string& path, const std::string& comment,
                   const std::vector<std::string>& entries, std::string* reason) {
    std::string contents;
    if (!comment.empty()) contents = "# " + comment + "\r\n";
    for (const std::string& entry : entries) {
        if (!FitsListLine(entry)) {
            if (reason) *reason = "a line end in the name " + ToUtf8(FileNameOf(entry));
            return false;
        }
        contents += entry + "\r\n";
    }
    return ReplaceFile(path, contents, reason);
}

} // namespace vk
