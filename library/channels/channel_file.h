// xm_channels.dat: what is known of the channels, kept from run to run.
//
// One line a channel, ascending: the channel's number as a raw byte, its name in ANSI, a zero byte,
// its category in ANSI, CR LF. The number may itself be CR or LF.
#pragma once

#include "core/error_report.h"
#include "library/channels/channel_table.h"

#include <string>
#include <string_view>

namespace vk {

/// The file's name, in the application directory.
inline constexpr const char* ChannelFileName = "xm_channels.dat";

/// Puts the channels of a file's bytes into the table, seen at `now`. A line that is no channel
/// (torn, without a name, of a foreign file) is left out. Returns how many were left out.
int ParseChannels(std::string_view bytes, const DateTime& now, ChannelTable& table);

/// The file's bytes for all valid channels that have a name. Characters that would end a text or a
/// line are left out.
std::string FormatChannels(const ChannelTable& table);

/// Reads the file at `path`; what could not be read is logged, a missing file is not.
/// `channelListReady` is set when there was any channel.
void LoadChannels(const std::string& path, const DateTime& now, const ErrorReport& report,
                  ChannelTable& table);

/// Replaces the file in one step. False, with a log line, when it could not be written; the old
/// file is then as it was.
bool SaveChannels(const std::string& path, const ErrorReport& report, const ChannelTable& table);

} // namespace vk
