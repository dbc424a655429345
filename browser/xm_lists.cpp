#include "browser/xm_lists.h"

#include "core/text.h"
#include "library/lists/channel_list.h"
#include "library/sort.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

const ChannelTable NoChannels;

// The list's name: its file's name without the extension.
std::string ListName(const std::string& path) {
    const std::string name = FileNameOf(path);
    return ToUtf8(name.substr(0, name.rfind('.')));
}

} // namespace

XMLists::XMLists(ListDesk& desk)
    : desk_(desk), channels_(desk.needs.channels ? *desk.needs.channels : NoChannels),
      logos_(channels_, desk.needs.settings.AppDir(), desk.needs.report) {}

void XMLists::Begin(const std::string& title, const std::string& backTo) {
    desk_.Start();
    desk_.XMView = true;
    if (desk_.Building()) return;
    desk_.SetTitle(title);
    desk_.rows.AddBackTo(backTo);
}

void XMLists::ShowTop() {
    Begin("XM Channels and Categories ", "PATH:" + desk_.needs.MediaDir());
    desk_.rows.Add("Categories", "XM:Categories", xmdefault);
    desk_.rows.Add("<Build New Channel List>", "EDIT:.xcl", playlistpic);
    const std::string lists = desk_.needs.settings.values.PlaylistDir;
    const std::string& own = desk_.needs.settings.AppDir();
    if (IsAbsolutePath(lists)) AddSavedLists(WithoutTrailingSeparator(lists));
    if (WithoutTrailingSeparator(lists) != own) AddSavedLists(own); // where new ones are saved
    desk_.rows.Add("Show All Channels", "XM:ShowAll", xmdefault);
    desk_.Finish();
}

void XMLists::AddSavedLists(const std::string& folder) {
    std::vector<std::string> files;
    for (const FolderEntry& entry : ListFolder(folder, [&] { return desk_.Pulse(); }))
        if (!entry.isFolder && EqualNoCase(ExtensionOf(entry.name), "xcl"))
            files.push_back(JoinPath(folder, entry.name));
    ShellSortVariantArray(files);
    for (const std::string& file : files)
        desk_.rows.Add(ListName(file), "XM:List|" + file, playlistpic);
}

void XMLists::ShowXMCategories(const std::string& category) {
    if (!category.empty()) {
        Begin("XM Category: " + category, "XM:Categories");
        AddChannels(channels_.ChannelsOf(category));
        return desk_.Finish();
    }
    Begin("XM Categories ", "XM:");
    for (const std::string& name : channels_.Categories())
        desk_.rows.Add("XM Category: " + name, "XM:Categories|" + name, xmdefault);
    if (channels_.Categories().empty()) desk_.AddEmptyNotice(NoValidChannels);
    desk_.Finish();
}

void XMLists::ShowAllChannels() {
    Begin(AllChannelsTitle, "XM:");
    AddChannels(channels_.Channels());
    desk_.Finish();
}

void XMLists::ShowChannelList(const std::string& path) {
    Begin(ListName(path), "XM:");
    if (!desk_.Building()) desk_.rows.Add("<Edit This List>", "EDIT:" + path, playlistpic);
    desk_.Try("ShowChannelList", [&] { AddChannels(ReadChannelList(path)); });
    desk_.Finish();
}

void XMLists::AddChannels(const std::vector<int>& channels) {
    for (const int channel : channels) {
        if (!desk_.Pulse()) break;
        const ListRow row = ChannelRow(channel);
        desk_.list.AddItem(row.first, row.second, row.descriptor, row.picture);
    }
    if (channels.empty()) desk_.rows.AddNotice(NoValidChannels);
}

// A channel that the table does not know yet shows its number.
ListRow XMLists::ChannelRow(int channel) {
    const std::string number = std::to_string(channel);
    const std::string& name = channels_.channelTable.at(static_cast<std::size_t>(channel)).name;
    const bool plain = desk_.needs.settings.values.hideXMChanNo && !name.empty();
    const std::string logo = logos_.GetXMLogo(channel);
    ListRow row;
    row.first = plain ? name : name.empty() ? number : number + " - " + name;
    row.descriptor = ChannelDescriptor + number;
    row.picture = logo == logos_.DefaultLogo() ? xmdefault : logo;
    return row;
}

} // namespace vk
