// The satellite channels: written by the receiver's control, read by the browser and the player.
#pragma once

#include "platform/clock.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// What is known of one channel. Texts are UTF-8.
struct XMChannel {
    std::string name;
    std::string artist; ///< of what plays now
    std::string title;  ///< of what plays now
    std::string category;
    bool valid = false; ///< the receiver has reported the channel, or the file of the last run has
    std::optional<DateTime> lastSeen; ///< when the entry was last refreshed; nothing: never
};

/// One object a process, handed by reference.
struct ChannelTable {
    static constexpr int LastChannel = 255;

    /// By channel number; entry 0 is unused. Go through `at`, numbers come from outside.
    std::array<XMChannel, LastChannel + 1> channelTable;
    bool channelListReady = false; ///< a scan or the file has filled the table

    /// The numbers of the valid channels, ascending.
    std::vector<int> Channels() const;
    /// The categories of the valid channels, in the order of their first channels.
    std::vector<std::string> Categories() const;
    /// The numbers of the valid channels of one category, ascending.
    std::vector<int> ChannelsOf(const std::string& category) const;
};

/// True for 1 to 255.
constexpr bool IsChannelNumber(std::int64_t number) {
    return number >= 1 && number <= ChannelTable::LastChannel;
}

} // namespace vk
