#include "library/lists/saved_searches.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::size_t MostBytes = 64u << 10;

std::string FileOf(const SettingsStore& settings, SearchKind kind) {
    return settings.File("searches_" + std::to_string(static_cast<int>(kind)) + ".lst");
}

// A line end would make two searches of it.
std::string OneLine(const std::string& text) {
    return Trim(ReplaceAll(ReplaceAll(text, "\r", " "), "\n", " "));
}

} // namespace

std::vector<std::string> ReadSavedSearches(const SettingsStore& settings, SearchKind kind) {
    std::vector<std::string> texts;
    const auto contents = ReadWholeFile(FileOf(settings, kind), MostBytes);
    for (const std::string& line : ListLines(contents.value_or("")))
        texts.push_back(ToUtf8(line));
    return texts;
}

bool SaveSearch(const SettingsStore& settings, SearchKind kind, const std::string& text,
                std::string* reason) {
    const std::string file = FileOf(settings, kind);
    if (FileExists(file) && !ReadWholeFile(file, MostBytes)) {
        *reason = "the old ones could not be read";
        return false;
    }
    const std::string line = OneLine(text);
    std::vector<std::string> texts = ReadSavedSearches(settings, kind);
    std::erase_if(texts, [&](const std::string& old) { return EqualNoCase(old, line); });
    texts.insert(texts.begin(), line);
    const auto most = static_cast<std::size_t>(std::max(0, settings.values.SearchesToSave));
    texts.resize(std::min(texts.size(), most));
    std::string contents;
    for (const std::string& each : texts)
        contents += each + "\r\n";
    return ReplaceFile(file, contents, reason);
}

} // namespace vk
