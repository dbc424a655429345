#include "browser/list_editor.h"

#include "core/text.h"
#include "library/lists/channel_list.h"
#include "library/lists/list_file.h"
#include "library/tags/media_type.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

// The text behind the row's running number; all of it when rows bear none.
std::string WithoutNumber(const std::string& text, bool numbered) {
    const auto dash = text.find('-');
    const bool number = numbered && dash != std::string::npos && IsNumeric(text.substr(0, dash));
    return number ? text.substr(dash + 1) : " " + text;
}

} // namespace

bool ListEditor::Open(const std::string& path, bool ofChannels) {
    file.Open({}, ofChannels);
    lines_ = {};
    right_.ClearAllArrays();
    right_.HideDupes = false;
    if (!desk_.Try(ofChannels ? "EditChannelList" : "EditPlaylist", [&] { Fill(path); })) {
        right_.ClearAllArrays();
        return false;
    }
    opened_ = Entries();
    AddNoticeIfEmpty();
    if (path.empty() && !ofChannels && !file.HasFolder()) desk_.Say(NoPlaylistFolder);
    EnterMode(path);
    return true;
}

void ListEditor::EnterMode(const std::string& path) {
    BrowserState& state = desk_.needs.state;
    before_ = {state.ListMode, desk_.SqlView, state.CurrentPath, desk_.Title()};
    file.Open(path, file.OfChannels());
    desk_.SqlView = false;
    state.ListMode = ListBuild;
    editing_ = true;
    if (file.OfChannels())
        desk_.SetTitle(path.empty() ? "Build XM Channel List " : "Edit XM Channel List ");
    else
        desk_.SetTitle(path.empty() ? "Build Playlist " : "Edit Playlist ");
}

// A list that is there but cannot be read must not be written over later, and half a list neither.
void ListEditor::Fill(const std::string& path) {
    if (path.empty() || !FileExists(path)) return;
    lines_ = ParsePlaylist(ReadListText(path));
    found_.assign(lines_.lines.size(), {});
    file.OfChannels() ? AddChannels() : AddFiles(FolderOf(path));
}

void ListEditor::AddChannels() {
    for (std::size_t i = 0; i < found_.size(); ++i) {
        const auto numbers = ChannelNumbers(lines_.lines[i].text);
        if (numbers.empty()) continue;
        found_[i] = std::to_string(numbers.front());
        AddChannel(numbers.front());
    }
}

void ListEditor::AddFiles(const std::string& folder) {
    EntryResolver resolver(folder);
    std::size_t missing = 0;
    for (std::size_t i = 0; i < found_.size(); ++i) {
        if (!desk_.Pulse(static_cast<std::size_t>(right_.ItemCount()))) return;
        const PlaylistLine& line = lines_.lines[i];
        found_[i] = resolver.Resolve(line.text);
        if (!found_[i].empty())
            AddFile(found_[i]);
        else
            missing += !line.comment && !IsStreamAddress(line.text);
    }
    if (missing > 0) desk_.Say(FilesMissing(missing, true));
}

void ListEditor::AddFile(const std::string& path) {
    TagRecord tag = desk_.needs.library.tags.GetDBTag(path);
    if (tag.Artist.empty()) tag.Artist.swap(tag.Title);
    const std::string number = std::to_string(right_.ItemCount() + 1) + " - ";
    const std::string dash = tag.Title.empty() ? "" : " - ";
    right_.AddItem(number + tag.Artist + dash, tag.Title, Descriptor::File(path).Text(), mp3pic);
}

void ListEditor::AddChannel(int number) {
    const ListRow row = xmLists_.ChannelRow(number);
    right_.AddItem(row.first, row.second, row.descriptor, row.picture);
}

void ListEditor::AddNoticeIfEmpty() {
    if (right_.ItemCount() == 0)
        right_.AddItem(file.OfChannels() ? NoValidChannels : NoValidFilenames, "", "");
}

void ListEditor::Show() {
    right_.SelectItem(0);
    right_.LoadList();
}

bool ListEditor::HasRows() const {
    return !right_.GetFileNameListusercontrol(0).empty();
}

void ListEditor::End() {
    BrowserState& state = desk_.needs.state;
    state.ListMode = before_.ListMode;
    state.CurrentPath = before_.CurrentPath;
    desk_.SqlView = before_.SqlView;
    desk_.SetTitle(before_.title);
    Drop();
}

void ListEditor::Drop() {
    editing_ = false;
    file.Close();
    right_.ClearAllArrays();
}

bool ListEditor::Takes(const Descriptor& row, std::string& problem) const {
    if (row.IsChannel()) return file.OfChannels();
    if (file.OfChannels() || row.kind != RowKind::File) return false;
    if (GetMediaType(desk_.needs.library.extensions, row.body) != MediaAudio)
        problem = "Only music can be put in a list.";
    else if (!FitsListLine(row.body))
        problem = NameFitsNoList;
    return problem.empty();
}

std::string ListEditor::Add(const ListRow& row) {
    std::string problem;
    const Descriptor added = Descriptor::Parse(row.descriptor);
    if (right_.MatchItem(row.descriptor) >= 0 || !Takes(added, problem)) return problem;
    if (!HasRows()) right_.ClearAllArrays();
    if (file.OfChannels()) {
        for (const int number : ChannelNumbers(added.argument))
            AddChannel(number);
    } else {
        const std::string text = WithoutNumber(row.first, desk_.needs.Options().numberedList);
        right_.AddItem(std::to_string(right_.ItemCount() + 1) + " -" + text, row.second,
                       row.descriptor, row.picture, row.icon);
    }
    AddNoticeIfEmpty();
    right_.LoadList();
    right_.SelectItem(right_.ItemCount() - 1);
    return {};
}

std::vector<std::string> ListEditor::Entries() const {
    std::vector<std::string> entries;
    for (int row = 0; row < right_.ItemCount(); ++row) {
        const auto entry = Descriptor::Parse(right_.GetFileNameListusercontrol(row));
        if (entry.kind != RowKind::None)
            entries.push_back(entry.IsChannel() ? entry.argument : entry.body);
    }
    return entries;
}

SaveResult ListEditor::Save(const std::string& name) {
    const bool changed = Changed();
    return file.Save(name, changed, [&](const std::string& path) {
        return PlaylistText(WithEntries(lines_, found_, Entries(), {file.OpenedPath(), path}));
    });
}

void ListEditor::Remove(int row) {
    if (!HasRows() || row < 0 || row >= right_.ItemCount()) return;
    right_.RemoveItem(row);
    AddNoticeIfEmpty();
    if (right_.iSelected >= right_.ItemCount()) right_.SelectItem(right_.ItemCount() - 1);
    if (!file.OfChannels() && HasRows()) Renumber(row);
}

void ListEditor::Renumber(int from) {
    for (int row = from; row < right_.ItemCount(); ++row) {
        const std::string text = right_.GetIndexFirstArray(row);
        right_.RplartistListItem(row, std::to_string(row + 1) + text.substr(text.find(' ')));
    }
}

} // namespace vk
