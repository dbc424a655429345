#include "library/channels/channel_file.h"

#include "core/ansi_text.h"
#include "core/text.h"
#include "platform/files.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t LongestText = 64;      // the receiver's own fields have 16 bytes
constexpr std::size_t LargestFile = 1 << 16; // 255 lines of two such texts

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

bool IsText(std::string_view bytes) {
    return bytes.size() <= LongestText && std::ranges::none_of(bytes, IsControl);
}

// A line without its end: number, name, zero byte, category.
bool TakeLine(std::string_view line, const DateTime& now, ChannelTable& table) {
    const auto zero = line.find('\0', 1);
    if (zero == std::string_view::npos) return false;
    const std::string_view name = line.substr(1, zero - 1);
    const std::string_view category = line.substr(zero + 1, line.find('\0', zero + 1) - zero - 1);
    const int number = static_cast<unsigned char>(line.front());
    if (!IsChannelNumber(number) || !IsText(name) || !IsText(category) || Trim(name).empty())
        return false;
    XMChannel& channel = table.channelTable.at(static_cast<std::size_t>(number));
    channel.name = AnsiToUtf8(Trim(name));
    channel.category = AnsiToUtf8(Trim(category));
    channel.valid = true;
    channel.lastSeen = now;
    return true;
}

std::string FileText(const std::string& utf8) {
    std::string text = Utf8ToAnsi(utf8);
    std::erase_if(text, IsControl);
    return text.substr(0, LongestText);
}

} // namespace

int ParseChannels(std::string_view bytes, const DateTime& now, ChannelTable& table) {
    int leftOut = 0;
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find(LineEnd, 1), bytes.size());
        if (!TakeLine(bytes.substr(0, end), now, table)) ++leftOut;
        bytes.remove_prefix(std::min(end + LineEnd.size(), bytes.size()));
    }
    return leftOut;
}

std::string FormatChannels(const ChannelTable& table) {
    std::string bytes;
    for (const int number : table.Channels()) {
        const XMChannel& channel = table.channelTable.at(static_cast<std::size_t>(number));
        const std::string name = FileText(channel.name);
        if (Trim(name).empty()) continue;
        bytes.append(1, static_cast<char>(number)).append(name).append(1, '\0');
        bytes.append(FileText(channel.category)).append(LineEnd);
    }
    return bytes;
}

void LoadChannels(const std::string& path, const DateTime& now, const ErrorReport& report,
                  ChannelTable& table) {
    if (!FileExists(path)) return;
    const auto bytes = ReadWholeFile(path, LargestFile);
    if (!bytes) return report.Log("could not read " + ToUtf8(path));
    const int leftOut = ParseChannels(*bytes, now, table);
    table.channelListReady = table.channelListReady || !table.Channels().empty();
    if (leftOut > 0)
        report.Log(std::string(ChannelFileName) + ": " + std::to_string(leftOut) +
                   " lines are no channels");
    if (FileLength(path) > LargestFile)
        report.Log(std::string(ChannelFileName) + " is too long, its end was not read");
}

bool SaveChannels(const std::string& path, const ErrorReport& report, const ChannelTable& table) {
    std::string reason;
    if (ReplaceFile(path, FormatChannels(table), &reason)) return true;
    report.Log("could not write " + ToUtf8(path) + ": " + reason);
    return false;
}

} // namespace vk
