// The mode that builds and edits lists: two lists side by side, the right one being built.
#include "core/text.h"
#include "library/browser/browser.h"
#include "platform/files.h"

namespace vk {

namespace {

constexpr int TitleMs = 800;
constexpr int WaitStepMs = 20;

} // namespace

void Browser::OpenEditor(const RowDescriptor& row) {
    const std::string path = row.Rest();
    const bool channels = EqualNoCase(LastBytes(path, 4), ".xcl");
    RecurseArmed = false;
    view_.SetButton(BrowserButton::Recurse, "recurse.gif");
    // The extension alone stands for a new channel list.
    const bool open =
        channels ? editor_.EditChannelList(FileNameOf(path).size() == 4 ? std::string() : path)
                 : editor_.EditPlaylist(path);
    if (!open) return editor_.Message().empty() ? void() : ShowNotice(editor_.Message());
    view_.LayOut(ListBuild);
    FocusRight(false);
    editor_.Show();
    view_.ReDrawRightList();
    if (channels)
        xmLists_.ShowAllChannels();
    else
        builder_.Populate();
    list_.SelectItem(0);
    view_.ReDrawList();
}

void Browser::AddToList(const std::string& kind) {
    if (kind == "FILE" && builder_.BrowsingCD)
        return ShowNotice("Tracks of a CD cannot be put in a list.");
    editor_.Add(list_.Row(list_.GetSelectedSongNum()));
    if (!editor_.Message().empty()) ShowNotice(editor_.Message());
    view_.ReDrawRightList();
}

void Browser::RemoveFromList() {
    editor_.Remove(rightList_.GetSelectedSongNum());
    if (!editor_.HasRows()) FocusRight(false);
    view_.ReDrawRightList();
}

void Browser::FocusRight(bool right) {
    RightListFocus = right;
    view_.ShowFocus(right);
}

void Browser::ToggleListFocus() {
    if (needs_.app.ListBusy || KeyboardShown || !desk_.Building()) return;
    if (!RightListFocus && !editor_.HasRows()) return;
    FocusRight(!RightListFocus);
    (RightListFocus ? rightList_ : list_).SelectItem(0);
    view_.ReDrawList();
    view_.ReDrawRightList();
}

void Browser::ChooseLeft() {
    if (needs_.app.ListBusy) return;
    if (desk_.Building()) FocusRight(false);
    runok();
}

void Browser::ChooseRight() {
    if (needs_.app.ListBusy || KeyboardShown || !desk_.Building()) return;
    CloseToolFrame();
    RemoveFromList();
}

void Browser::SaveList() {
    if (needs_.app.ListBusy || KeyboardShown || !desk_.Building()) return;
    CloseToolFrame();
    editor_.WorthSaving() ? AskListName() : EndBuilding();
}

void Browser::AskListName() {
    ShowOSK(editor_.OfChannels() ? "Name of the Channel List" : "Name of the Playlist",
            editor_.DefaultName(), KeyboardPurposeValue::ListName);
}

// Refused: the keyboard stays, and says why where it asks.
void Browser::SaveUnder(const std::string& text) {
    const SaveResult result = editor_.Save(text);
    if (result == SaveResult::Refused) return keyboard_.SetCaption(editor_.Message());
    ShowTitleFor(editor_.Message(), TitleMs);
    HideOSK();
    desk_.SetTitle(SavedTitle);
    // A new list that was given no name is still there: it has no other place.
    if (result == SaveResult::NotSaved && editor_.EditListPath.empty()) return;
    LeaveEditor();
}

void Browser::ShowTitleFor(const std::string& title, int milliseconds) {
    desk_.SetTitle(title);
    const std::int64_t end = needs_.clock.TickMs() + milliseconds;
    while (needs_.clock.TickMs() < end) {
        needs_.clock.DoEvents();
        needs_.clock.Sleep(WaitStepMs);
    }
}

void Browser::EndBuilding() {
    Run("doquit", [&] { LeaveEditor(); });
}

// To the list that was edited, or to where the new one would have come from.
void Browser::LeaveEditor() {
    const std::string path = editor_.EditListPath;
    const bool channels = editor_.OfChannels();
    editor_.End();
    FocusRight(false);
    view_.LayOut(needs_.state.ListMode);
    if (!FileExists(path)) return builder_.Populate();
    if (channels) return xmLists_.ShowChannelList(path);
    if (path != editor_.OpenedPath()) desk_.SetTitle(editor_.DefaultName());
    builder_.ReadList(path);
}

void Browser::DropEditor() {
    editor_.Drop();
    FocusRight(false);
    view_.LayOut(needs_.state.ListMode);
}

} // namespace vk
