#include "library/lists/channel_list.h"

#include "core/text.h"
#include "library/channels/channel_table.h"
#include "library/lists/list_file.h"

namespace vk {

std::vector<int> ChannelNumbers(std::string_view text) {
    std::vector<int> channels;
    ForEachListLine(text, [&](const std::string& line) {
        const auto number = ParseInteger(line);
        if (number && IsChannelNumber(*number)) channels.push_back(static_cast<int>(*number));
        return true;
    });
    return channels;
}

std::vector<int> ReadChannelList(const std::string& path) {
    return ChannelNumbers(ReadListText(path));
}

bool WriteChannelList(const std::string& path, const std::vector<int>& channels) {
    std::vector<std::string> lines;
    lines.reserve(channels.size());
    for (const int channel : channels)
        lines.push_back(std::to_string(channel));
    return WriteListFile(path, "", lines);
}

} // namespace vk
