// The browser's lists of satellite channels.
#pragma once

#include "browser/list_desk.h"
#include "library/channels/xm_logo.h"

#include <string>
#include <vector>

namespace vk {

/// The heading of the list of all channels.
inline constexpr const char* AllChannelsTitle = "All XM Channels ";

/// Each operation replaces the rows of the list and ends with its `LoadList`. In the mode that
/// builds a list there are only channels: neither a way back nor "<Edit This List>", and the
/// heading stays. What it is given outlives it.
class XMLists {
  public:
    explicit XMLists(ListDesk& desk);

    /// The list that a descriptor of the kind `XM` stands for.
    void Show(const Descriptor& row);
    /// Categories, the saved lists, all channels.
    void ShowTop();
    void ShowAllChannels();
    /// The channels of an .xcl file; a list without any says so.
    void ShowChannelList(const std::string& path);
    /// The row of one channel, for whichever list it is added to.
    ListRow ChannelRow(int channel);

  private:
    /// All categories when `category` is empty, else its channels.
    void ShowXMCategories(const std::string& category);
    void Begin(const std::string& title, const Descriptor& backTo);
    void AddChannels(const std::vector<int>& channels);
    void AddSavedLists(const std::string& folder);

    ListDesk& desk_;
    const ChannelTable& channels_;
    XMLogos logos_;
};

} // namespace vk
