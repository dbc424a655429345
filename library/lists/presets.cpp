#include "library/lists/presets.h"

#include "core/error_report.h"
#include "core/text.h"
#include "core/utf16.h"
#include "platform/files.h"

#include <algorithm>
#include <functional>

namespace vk {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t LargestFile = 1 << 20;
constexpr std::size_t ShortestLine = 4;

// The lines as they stand, ended by CR LF, LF or CR.
std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(LineEnd), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
        text.remove_prefix(text.starts_with(LineEnd) ? LineEnd.size() : text.empty() ? 0 : 1);
    }
    return lines;
}

// Where files were joined, a byte order mark may begin any line.
std::string Bare(std::string_view line) {
    std::string text = Trim(line);
    while (text.starts_with(ByteOrderMark))
        text = Trim(text.substr(ByteOrderMark.size()));
    return text;
}

bool IsPreset(std::string_view line, const std::string& frequency) {
    const std::string bare = Bare(line);
    const auto colon = bare.find(':');
    return colon != std::string::npos && ToUtf8(Trim(bare.substr(0, colon))) == Trim(frequency);
}

// Every line of the frequency becomes `line`, which is empty or ends in a line end.
std::string Replaced(std::string_view text, const std::string& frequency, const std::string& line) {
    std::string result;
    for (const std::string_view kept : Lines(text)) {
        if (IsPreset(kept, frequency))
            result += line;
        else
            result.append(kept).append(LineEnd);
    }
    return result;
}

std::string ReadAll(const std::string& path) {
    auto text = ReadWholeFile(path, LargestFile);
    if (!text || FileLength(path) > LargestFile) throw Error("could not read " + ToUtf8(path), 53);
    const auto order = Utf16OrderOf(*text);
    return order ? Utf16ToUtf8(*text, *order) : std::move(*text);
}

void Change(const std::string& path, const std::function<std::string(const std::string&)>& change) {
    const std::string text = ReadAll(path);
    const std::string changed = change(text);
    std::string reason;
    if (changed != text && !ReplaceFile(path, changed, &reason))
        throw Error("The presets could not be saved: " + reason, 75);
}

} // namespace

std::vector<Preset> ParsePresets(std::string_view text) {
    std::vector<Preset> presets;
    for (const std::string_view line : Lines(text)) {
        const std::string bare = Bare(line);
        const auto colon = bare.find(':');
        if (colon == std::string::npos || bare.size() < ShortestLine) continue;
        presets.push_back({ToUtf8(Trim(bare.substr(0, colon))), ToUtf8(bare.substr(colon + 1))});
    }
    return presets;
}

std::string WithPreset(std::string_view text, const std::string& frequency,
                       const std::string& label) {
    std::string line = Trim(frequency) + ":" + label;
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    return Replaced(text, frequency, line.append(LineEnd));
}

std::string WithoutPreset(std::string_view text, const std::string& frequency) {
    return Replaced(text, frequency, "");
}

std::vector<Preset> ReadPresetFile(const std::string& path) {
    return FileExists(path) ? ParsePresets(ReadAll(path)) : std::vector<Preset>();
}

void SavePreset(const std::string& path, const std::string& frequency, const std::string& label) {
    Change(path, [&](const std::string& text) { return WithPreset(text, frequency, label); });
}

void DeleteFreq(const std::string& path, const std::string& frequency) {
    Change(path, [&](const std::string& text) { return WithoutPreset(text, frequency); });
}

} // namespace vk
