#include "browser/xm_lists.h"

#include "core/text.h"
#include "library/lists/channel_list.h"
#include "library/sort.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <map>

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
    : desk_(desk),
      channels_(desk.needs.library.channels ? *desk.needs.library.channels : NoChannels),
      logos_(channels_, desk.needs.base.settings.AppDir(), desk.needs.base.report) {}

void XMLists::Show(const Descriptor& row) {
    using Build = void (*)(XMLists&, const std::string& argument);
    static const std::map<std::string, Build> lists = {
        {"", [](XMLists& xm, const std::string&) { xm.ShowTop(); }},
        {"Categories", [](XMLists& xm, const std::string& name) { xm.ShowXMCategories(name); }},
        {"List", [](XMLists& xm, const std::string& path) { xm.ShowChannelList(path); }},
        {"ShowAll", [](XMLists& xm, const std::string&) { xm.ShowAllChannels(); }}};
    if (const auto list = lists.find(row.body); list != lists.end())
        list->second(*this, row.argument);
}

void XMLists::Begin(const std::string& title, const Descriptor& backTo) {
    desk_.Start();
    desk_.XMView = true;
    if (desk_.Building()) return;
    desk_.SetTitle(title);
    desk_.rows.AddBackTo(backTo);
}

void XMLists::ShowTop() {
    Begin("XM Channels and Categories ", Descriptor::Path(desk_.needs.MediaDir()));
    desk_.rows.Add("Categories", Descriptor::XM("Categories"), xmdefault);
    desk_.rows.Add("<Build New Channel List>", Descriptor::Edit(".xcl"), playlistpic);
    const std::string lists = desk_.needs.Options().PlaylistDir;
    const std::string& own = desk_.needs.base.settings.StateDir();
    if (IsAbsolutePath(lists)) AddSavedLists(WithoutTrailingSeparator(lists));
    if (WithoutTrailingSeparator(lists) != own) AddSavedLists(own); // where new ones are saved
    desk_.rows.Add("Show All Channels", Descriptor::XM("ShowAll"), xmdefault);
    desk_.Finish();
}

void XMLists::AddSavedLists(const std::string& folder) {
    std::vector<std::string> files;
    for (const FolderEntry& entry : ListFolder(folder, [&] { return desk_.Pulse(); }))
        if (!entry.isFolder && EqualNoCase(ExtensionOf(entry.name), "xcl"))
            files.push_back(JoinPath(folder, entry.name));
    ShellSortVariantArray(files);
    for (const std::string& file : files)
        desk_.rows.Add(ListName(file), Descriptor::XM("List", file), playlistpic);
}

void XMLists::ShowXMCategories(const std::string& category) {
    if (!category.empty()) {
        Begin("XM Category: " + category, Descriptor::XM("Categories"));
        AddChannels(channels_.ChannelsOf(category));
        return desk_.Finish();
    }
    Begin("XM Categories ", Descriptor::XM());
    for (const std::string& name : channels_.Categories())
        desk_.rows.Add("XM Category: " + name, Descriptor::XM("Categories", name), xmdefault);
    if (channels_.Categories().empty()) desk_.AddEmptyNotice(NoValidChannels);
    desk_.Finish();
}

void XMLists::ShowAllChannels() {
    Begin(AllChannelsTitle, Descriptor::XM());
    AddChannels(channels_.Channels());
    desk_.Finish();
}

void XMLists::ShowChannelList(const std::string& path) {
    Begin(ListName(path), Descriptor::XM());
    if (!desk_.Building()) desk_.rows.AddEdit(path);
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
    const bool plain = desk_.needs.Options().hideXMChanNo && !name.empty();
    const std::string logo = logos_.GetXMLogo(channel);
    ListRow row;
    row.first = plain ? name : name.empty() ? number : number + " - " + name;
    row.descriptor = Descriptor::Channel(channel).Text();
    row.picture = logo == logos_.DefaultLogo() ? xmdefault : logo;
    return row;
}

} // namespace vk
