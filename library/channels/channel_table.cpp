#include "library/channels/channel_table.h"

#include <algorithm>

namespace vk {

std::vector<int> ChannelTable::Channels() const {
    std::vector<int> numbers;
    for (int number = 1; number <= LastChannel; ++number)
        if (channelTable.at(static_cast<std::size_t>(number)).valid) numbers.push_back(number);
    return numbers;
}

std::vector<std::string> ChannelTable::Categories() const {
    std::vector<std::string> categories;
    for (const XMChannel& channel : channelTable) {
        if (!channel.valid || channel.category.empty()) continue;
        if (std::ranges::find(categories, channel.category) == categories.end())
            categories.push_back(channel.category);
    }
    return categories;
}

std::vector<int> ChannelTable::ChannelsOf(const std::string& category) const {
    std::vector<int> numbers = Channels();
    std::erase_if(numbers, [&](int number) {
        return channelTable.at(static_cast<std::size_t>(number)).category != category;
    });
    return numbers;
}

} // namespace vk
