// The mode that builds and edits lists: two lists side by side, the right one being built.
#include "browser/browse_history.h"
#include "browser/browser.h"
#include "core/text.h"
#include "platform/files.h"

namespace vk {

namespace {

constexpr int TitleMs = 800;

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
    if (!open) return;
    view_.LayOut(ListBuild);
    FocusRight(false);
    editor_.Show();
    view_.ReDrawRightList();
    Populate();
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
    if (KeyboardShown || !desk_.Building()) return;
    if (!RightListFocus && !editor_.HasRows()) return;
    FocusRight(!RightListFocus);
    (RightListFocus ? rightList_ : list_).SelectItem(0);
    view_.ReDrawList();
    view_.ReDrawRightList();
}

void Browser::ChooseLeft() {
    if (desk_.Building()) FocusRight(false);
    runok();
}

void Browser::ChooseRight() {
    if (KeyboardShown || !desk_.Building()) return;
    CloseToolFrame();
    RemoveFromList();
}

void Browser::SaveList() {
    if (KeyboardShown || !desk_.Building()) return;
    CloseToolFrame();
    EndBuilding();
}

// The list that was there before is most often saved as that: Enter does it.
void Browser::AskListName() {
    if (!editor_.DefaultName().empty()) keyboard_.MarkKey(KeyboardModel::OKKey);
    ShowOSK(editor_.OfChannels() ? "Name of the Channel List" : "Name of the Playlist",
            editor_.DefaultName(), KeyboardPurposeValue::ListName);
}

// Refused: the keyboard stays, and says why where it asks. Without a name the list is given up.
void Browser::SaveUnder(const std::string& text) {
    const SaveResult result = editor_.Save(text);
    if (result == SaveResult::Refused) return keyboard_.SetCaption(editor_.Message());
    ShowTitleFor(editor_.Message(), TitleMs);
    HideOSK();
    desk_.SetTitle(SavedTitle);
    LeaveEditor();
}

void Browser::ShowTitleFor(const std::string& title, int milliseconds) {
    desk_.SetTitle(title);
    needs_.pump.Pause("a title", milliseconds);
}

void Browser::EndBuilding() {
    if (editor_.WorthSaving()) return AskListName();
    Run("doquit", [&] { LeaveEditor(); });
}

// A list that was built has no other place: its name is asked for before the screen is left.
bool Browser::KeepsBuilding() {
    const bool keeps = desk_.Building() && editor_.WorthSaving();
    if (keeps) doquit();
    return keeps;
}

// To the list that was edited, or to where the new one would have come from.
void Browser::LeaveEditor() {
    const std::string path = editor_.EditListPath;
    const std::string name = editor_.DefaultName();
    const bool channels = editor_.OfChannels();
    editor_.End();
    FocusRight(false);
    view_.LayOut(needs_.state.ListMode);
    if (!FileExists(path)) return channels ? xmLists_.ShowTop() : Populate();
    if (path != editor_.OpenedPath()) {
        if (!editor_.OpenedPath().empty()) PopHistory(BrowseHistory);
        PushHistory(BrowseHistory, (channels ? "XM:List|" : "FILE:") + path);
        desk_.SetTitle(name);
    }
    channels ? xmLists_.ShowChannelList(path) : builder_.ReadList(path);
}

void Browser::DropEditor() {
    editor_.Drop();
    FocusRight(false);
    view_.LayOut(needs_.state.ListMode);
}

} // namespace vk
