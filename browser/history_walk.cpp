#include "browser/history_walk.h"

#include "core/ini_file.h"
#include "core/text.h"
#include "library/tags/media_type.h"

#include <utility>

namespace vk {

namespace {

std::vector<std::string> StoredElements(const ListDesk& desk) {
    const bool xm = desk.needs.players.audio.PlayMode == PlayXM;
    return SplitHistory(
        desk.needs.base.settings.Get(xm ? setting::XMBrowseHistory : setting::BrowseHistory));
}

// Of a longer history the end, where something was played, is cut off.
bool Cut(const std::vector<std::string>& elements) {
    std::size_t length = elements.size() - 1; // what separates them
    for (const std::string& element : elements)
        length += element.size();
    return length >= IniValueLimit;
}

// Nothing lies behind a file that is played.
bool LeadsOn(const MediaExtensions& extensions, const Descriptor& element) {
    const int type = GetMediaType(extensions, element.body);
    return element.kind != RowKind::File || type == MediaPlaylist || type == MediaPresetList;
}

bool IsSearch(const std::string& text) {
    return StartsWithNoCase(text, Descriptor::Sql("Search").Text());
}

// The row that an element names: by its descriptor or by its text; -1 for none, and for a search,
// which is not run again, `search` is set.
int FindRow(ListDesk& desk, const std::string& element, bool byDescriptor, bool& ends) {
    for (int row = 0; row < desk.list.ItemCount(); ++row) {
        const std::string text = byDescriptor ? desk.list.GetFileNameListusercontrol(row)
                                              : desk.list.GetIndexFirstArray(row);
        ends = !desk.Pulse() || IsSearch(text);
        if (ends) return -1;
        if (Trim(text) == element) return row;
    }
    return -1;
}

} // namespace

void RestoreBrowseHistory(BrowserLists& lists, Chooser& chooser) {
    auto elements = StoredElements(lists.desk);
    if (elements.empty()) return;
    const Descriptor end = Descriptor::Parse(elements.back());
    const RowKind kind = Cut(elements) ? RowKind::File : end.kind;
    if (kind == RowKind::File || end.IsChannel()) elements.pop_back();
    const bool byDescriptor = kind == RowKind::XM || kind == RowKind::File;
    for (const std::string& element : elements) {
        bool ends = !LeadsOn(lists.desk.needs.library.extensions, Descriptor::Parse(element));
        const int row = ends ? -1 : FindRow(lists.desk, element, byDescriptor, ends);
        if (ends) return;
        if (row < 0) continue;
        lists.desk.list.SelectItem(row);
        if (kind != RowKind::Path || &element != &elements.back()) chooser.Choose();
    }
    const std::string played = std::exchange(lists.desk.needs.state.Played, {});
    if (end.kind == RowKind::File)
        lists.desk.SelectMatch(played.empty() ? end.Text() : Descriptor::File(played).Text());
}

} // namespace vk
