// The picture of a satellite channel.
#pragma once

#include "core/error_report.h"
#include "library/channels/channel_table.h"

#include <set>
#include <string>

namespace vk {

/// Finds the pictures that lie in COMMON/XMPICS of the application directory. What it is given
/// outlives it.
class XMLogos {
  public:
    XMLogos(const ChannelTable& channels, const std::string& appDir, ErrorReport& report);

    /// Full path of the channel's picture: by its name, for traffic and weather by the category.
    /// Without one it is `DefaultLogo`, and the log tells once which name was looked for. A number
    /// outside the table is reported.
    std::string GetXMLogo(int channel);
    /// default.gif, which stands for every channel without a picture; the file need not exist.
    std::string DefaultLogo() const;

  private:
    std::string Find(const XMChannel& channel);
    std::string FindStem(const std::string& stem) const;

    const ChannelTable& channels_;
    std::string folder_;
    ErrorReport& report_;
    std::set<std::string> missed_; ///< stems that were logged: a list asks for them over and over
};

} // namespace vk
