// The satellite channels: their lists, and the channel that is handed to the player.
#include "browser/browser.h"
#include "core/text.h"
#include "library/lists/channel_list.h"

#include <algorithm>
#include <map>

namespace vk {

void Browser::OpenXM(const RowDescriptor& row) {
    using Build = void (*)(XMLists&, const std::string& argument);
    static const std::map<std::string, Build> lists = {
        {"", [](XMLists& xm, const std::string&) { xm.ShowTop(); }},
        {"Categories", [](XMLists& xm, const std::string& name) { xm.ShowXMCategories(name); }},
        {"List", [](XMLists& xm, const std::string& path) { xm.ShowChannelList(path); }},
        {"ShowAll", [](XMLists& xm, const std::string&) { xm.ShowAllChannels(); }}};
    desk_.SqlView = false;
    if (row.body == "Channel") return TuneChannel(row);
    const auto list = lists.find(row.body);
    if (list != lists.end()) list->second(xmLists_, row.argument);
}

// Writes the channels on show for the player's next and previous; `position` is the one-based place
// of the selected one. False when they could not be written.
bool Browser::WriteChannels(std::int32_t& position) {
    std::string numbers;
    position = 1;
    for (int row = 0; row < list_.ItemCount(); ++row) {
        const RowDescriptor entry = SplitDescriptor(list_.GetFileNameListusercontrol(row));
        if (entry.kind == "XM" && entry.body == "Channel") numbers += entry.argument + "\n";
        if (row == list_.GetSelectedSongNum())
            position = static_cast<std::int32_t>(std::ranges::count(numbers, '\n'));
    }
    const std::string file = needs_.settings.File(CurrentChannelsName);
    if (WriteChannelList(file, ChannelNumbers(numbers))) return true;
    needs_.report.Log("could not write " + ToUtf8(file));
    ShowNotice("The channel list could not be written.");
    return false;
}

// The player reads the settings when it switches over: channel, list ("" for all channels) and the
// list's name.
void Browser::TuneChannel(const RowDescriptor& row) {
    const auto channel = ParseInteger(row.argument);
    AudioState& audio = needs_.audio;
    std::int32_t position = 0;
    if (!channel || !IsChannelNumber(*channel) || !WriteChannels(position)) return;
    const bool all = desk_.Title() == AllChannelsTitle;
    audio.ListFile = needs_.settings.File(CurrentChannelsName);
    const auto save = [&](const char* key, const std::string& value) {
        needs_.settings.Write("xmpcr_tuner", key, value);
    };
    save("CurrentChannel", std::to_string(*channel));
    save("PresetList", all ? "" : audio.ListFile);
    save("ListTitle", all ? XMSourceName : Trim(desk_.Title()));
    audio.PlayMode = PlayXM;
    audio.ListTitle = XMSourceName;
    audio.CurrentChannel = static_cast<std::int16_t>(*channel);
    audio.TrackToSelect = position;
    audio.VolumeSerial = -1;
    audio.bResuming = false;
    audio.bStartPlaying = true;
    HistoryDirty = true;
    EnterPlayer();
}

} // namespace vk
