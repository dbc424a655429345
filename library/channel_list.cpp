#include "library/channel_list.h"

#include "core/text.h"
#include "library/list_file.h"
#include "platform/files.h"
#include "tuners/xm/channel_table.h"

namespace vk {

std::vector<int> ChannelNumbers(std::string_view text) {
    std::vector<int> channels;
    for (const std::string& line : ListLines(text)) {
        const auto number = ParseInteger(line);
        if (number && IsChannelNumber(*number)) channels.push_back(static_cast<int>(*number));
    }
    return channels;
}

std::vector<int> ReadChannelList(const std::string& path) {
    return ChannelNumbers(ReadWholeFile(path).value_or(""));
}

bool WriteChannelList(const std::string& path, const std::vector<int>& channels) {
    std::vector<std::string> lines;
    for (const int channel : channels)
        lines.push_back(std::to_string(channel));
    return WriteListFile(path, "", lines);
}

} // namespace vk
