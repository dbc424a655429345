// The interpreter of descriptors: what choosing a row does.
#include "browser/browse_history.h"
#include "browser/browser.h"
#include "core/text.h"
#include "library/tags/media_type.h"

#include <map>

namespace vk {

void Browser::runok() {
    if (KeyboardShown) return keyboard_.ClickIt();
    CloseToolFrame();
    if (RightListFocus) return RemoveFromList();
    Run("runok", [&] { Choose(); });
}

void Browser::Choose() {
    try {
        view_.ShowLoading("Busy");
        ChooseRow();
    } catch (const std::exception& error) {
        const int number = ErrorNumber(error);
        needs_.report.Log("Error in PlayList.Runok  Error:" + std::to_string(number));
        FallBack();
        needs_.report.ReportError("An error occured in playlists.runok ", error.what(), number);
    }
}

void Browser::ChooseRow() {
    static const std::map<std::string, Handler> kinds = {
        {"FILE", &Browser::OpenFile}, {"PATH", &Browser::OpenPath},   {"SQL", &Browser::OpenSql},
        {"FREQ", &Browser::AskLabel}, {"EDIT", &Browser::OpenEditor}, {"XM", &Browser::OpenXM}};
    const std::string descriptor = list_.GetSelectedFileName();
    if (descriptor.empty()) return;
    if (needs_.state.ListMode == ListApplications) return ChooseApplication(descriptor);
    const RowDescriptor row = SplitDescriptor(descriptor);
    if (desk_.Building() && (row.kind == "FILE" || row.kind == "XM")) return AddToList(row.kind);
    const std::string before = BrowseHistory;
    const std::string comeFrom = TrackHistory(descriptor, row.kind);
    const int lists = desk_.ListsStarted();
    if (const auto handler = kinds.find(row.kind); handler != kinds.end())
        (this->*handler->second)(row);
    // There is no way back from what was not entered.
    if (lists == desk_.ListsStarted()) BrowseHistory = before;
    if (needs_.settings.values.UseBrowseHistory) SelectMatch(comeFrom);
}

// Returns the element that the way back came from, "" on the way down.
std::string Browser::TrackHistory(const std::string& descriptor, const std::string& kind) {
    if (desk_.Building()) return {};
    const bool back = list_.GetSelectedSongNum() == 0 && desk_.rows.HasBack();
    if (back && !BrowseHistory.empty()) return PopHistory(BrowseHistory);
    if (kind != "EDIT") PushHistory(BrowseHistory, descriptor);
    return {};
}

void Browser::SelectMatch(const std::string& descriptor) {
    const auto row = descriptor.empty() ? -1 : list_.MatchItem(descriptor);
    if (row <= 0) return;
    list_.SelectItem(row);
    view_.ReDrawList();
}

void Browser::ChooseApplication(const std::string& line) {
    needs_.report.Log("no program can be started: " + ToUtf8(line));
    ShowNotice("Applications cannot be started.");
}

void Browser::OpenPath(const RowDescriptor& row) {
    const std::string folder = row.Rest();
    const bool recurse = std::exchange(RecurseArmed, false);
    view_.SetButton(BrowserButton::Recurse, "recurse.gif");
    desk_.SqlView = false;
    if (recurse) return builder_.RecurseFolder(folder);
    if (folder == needs_.MediaDir() && !desk_.Building()) BrowseHistory.clear();
    needs_.state.CurrentPath = folder;
    Populate();
    if (needs_.state.CurrentPath == folder) return;
    if (!desk_.Building()) BrowseHistory.clear();
    ShowNotice("The folder is not available.");
}

void Browser::OpenFile(const RowDescriptor& row) {
    static const std::map<int, Handler> types = {{MediaAudio, &Browser::PlayAudioFiles},
                                                 {MediaVideo, &Browser::PlayVideoFiles},
                                                 {MediaPlaylist, &Browser::OpenPlaylist},
                                                 {MediaPresetList, &Browser::ReadPresets}};
    if (row.body == "DVDVIDEO") return PlayDisc();
    const auto handler = types.find(GetMediaType(needs_.extensions, row.Rest()));
    if (handler != types.end()) (this->*handler->second)(row);
}

// The heading is the row's text without its running number.
void Browser::OpenPlaylist(const RowDescriptor& row) {
    const std::string text = list_.GetSelectedItemText();
    const auto dash = text.find(" - ");
    const bool numbered = dash != std::string::npos && IsNumeric(text.substr(0, dash));
    desk_.SetTitle(numbered ? text.substr(dash + 3) : text);
    builder_.ReadList(row.Rest());
}

} // namespace vk
