// Walking back to where the user last was.
#include "browser/browse_history.h"
#include "browser/browser.h"
#include "core/ini_file.h"
#include "core/text.h"
#include "library/tags/media_type.h"

namespace vk {

// The way to what was played last is walked again; the played row itself is not chosen.
void Browser::RestoreBrowseHistory() {
    const char* section = needs_.audio.PlayMode == PlayXM ? "xmpcr_tuner" : "main";
    const std::string history = needs_.settings.Read(section, "BrowseHistory");
    auto elements = SplitHistory(history);
    if (elements.empty()) return;
    // Of a longer history the end, where something was played, is cut off.
    const bool cut = history.size() >= IniValueLimit;
    const std::string kind = cut ? "FILE" : SplitDescriptor(elements.back()).kind;
    if (kind == "FILE" || elements.back().find("XM:Channel|") != std::string::npos)
        elements.pop_back();
    for (std::size_t i = 0; i < elements.size(); ++i)
        if (!RestoreElement(elements[i], kind, i + 1 == elements.size())) return;
}

// Nothing lies behind a file that is played.
static bool LeadsOn(const MediaExtensions& extensions, const std::string& element) {
    const RowDescriptor row = SplitDescriptor(element);
    const int type = GetMediaType(extensions, row.Rest());
    return row.kind != "FILE" || type == MediaPlaylist || type == MediaPresetList;
}

// False ends the walk. A row that is not found is skipped.
bool Browser::RestoreElement(const std::string& element, const std::string& kind, bool last) {
    if (!LeadsOn(needs_.extensions, element)) return false;
    const bool byDescriptor = kind == "XM" || kind == "FILE";
    for (int row = 0; row < list_.ItemCount(); ++row) {
        if (!desk_.Pulse()) return false;
        const std::string text =
            byDescriptor ? list_.GetFileNameListusercontrol(row) : list_.GetIndexFirstArray(row);
        if (StartsWithNoCase(text, "SQL:SEARCH")) return false;
        if (Trim(text) != element) continue;
        list_.SelectItem(row);
        if (!(last && kind == "PATH")) Choose();
        return true;
    }
    return true;
}

} // namespace vk
