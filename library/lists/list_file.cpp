#include "library/lists/list_file.h"

#include "core/error_report.h"
#include "core/text.h"
#include "core/utf16.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool WalkLines(std::string_view contents, const LineVisitor& visit) {
    if (contents.starts_with(ByteOrderMark)) contents.remove_prefix(ByteOrderMark.size());
    while (!contents.empty()) {
        const auto end = std::min(contents.find_first_of("\r\n"), contents.size());
        const std::string line = Trim(contents.substr(0, end));
        if (!line.empty() && !visit(line)) return false;
        contents.remove_prefix(std::min(end + 1, contents.size()));
    }
    return true;
}

} // namespace

bool ForEachListLine(std::string_view contents, const LineVisitor& visit) {
    const auto order = Utf16OrderOf(contents);
    return order ? WalkLines(Utf16ToUtf8(contents, *order), visit) : WalkLines(contents, visit);
}

std::vector<std::string> ListLines(std::string_view contents) {
    std::vector<std::string> lines;
    ForEachListLine(contents, [&](const std::string& line) {
        lines.push_back(line);
        return true;
    });
    return lines;
}

std::string ReadListText(const std::string& path) {
    auto contents = ReadWholeFile(path, ListFileLimit);
    if (!contents || FileLength(path) > ListFileLimit)
        throw Error("could not read " + ToUtf8(path), 75);
    return std::move(*contents);
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
