#include "browser/list_building.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

constexpr int TitleMs = 800;

} // namespace

void ListBuilding::Open(const std::string& path) {
    const bool channels = EqualNoCase(LastBytes(path, 4), ".xcl");
    const bool unnamed = channels && FileNameOf(path).size() == 4;
    if (!editor_.Open(unnamed ? std::string() : path, channels)) return;
    desk_.view.LayOut(ListBuild);
    Focus(false);
    editor_.Show();
    desk_.view.ReDrawRightList();
    lists_.Populate();
    desk_.list.SelectItem(0);
    desk_.view.ReDrawList();
}

void ListBuilding::AddSelected() {
    const ListRow& row = desk_.list.Row(desk_.list.GetSelectedSongNum());
    const bool file = Descriptor::Parse(row.descriptor).kind == RowKind::File;
    if (file && lists_.place.BrowsingCD)
        return desk_.Say("Tracks of a CD cannot be put in a list.");
    const std::string problem = editor_.Add(row);
    if (!problem.empty()) desk_.Say(problem);
    desk_.view.ReDrawRightList();
}

void ListBuilding::RemoveSelected() {
    editor_.Remove(right_.GetSelectedSongNum());
    if (!editor_.HasRows()) Focus(false);
    desk_.view.ReDrawRightList();
}

void ListBuilding::Focus(bool right) {
    rightFocus_ = right;
    desk_.view.ShowFocus(right);
}

void ListBuilding::ToggleFocus() {
    if (!desk_.Building() || (!rightFocus_ && !editor_.HasRows())) return;
    Focus(!rightFocus_);
    (rightFocus_ ? right_ : desk_.list).SelectItem(0);
    desk_.view.ReDrawList();
    desk_.view.ReDrawRightList();
}

void ListBuilding::Finish() {
    if (editor_.WorthSaving()) return AskName();
    desk_.Run("doquit", [this] { Leave(); });
}

bool ListBuilding::Keeps() {
    const bool keeps = desk_.Building() && editor_.WorthSaving();
    if (keeps) text_.IsOpen() ? text_.Cancel() : Finish();
    return keeps;
}

// The list that was there before is most often saved as that: Enter does it.
void ListBuilding::AskName() {
    desk_.Hush(); // what is said would lie over the keys
    const std::string name = editor_.file.DefaultName();
    text_.Open(
        {.caption = editor_.file.OfChannels() ? "Name of the Channel List" : "Name of the Playlist",
         .value = name,
         .refuse = [this](const std::string& text) { return SaveUnder(text); },
         .answer = [this](const auto& text) { Named(text.has_value()); },
         .startOnOK = !name.empty()});
}

// Refused: the keyboard stays, and says why where it asks. Without a name the list is given up,
// when that is meant.
std::string ListBuilding::SaveUnder(const std::string& name) {
    std::string refused = "Not saved";
    if (name.empty() && editor_.Changed() &&
        !desk_.needs.base.dialogs.AskNoYes("The list has no name and is not saved. Give it up?"))
        return "Please type a name.";
    desk_.Run("UCKeyboard_OK", [&] {
        const bool done = editor_.Save(name) != SaveResult::Refused;
        refused = done ? "" : editor_.file.Message();
        if (!done) return;
        const std::string title = desk_.Title();
        desk_.SetTitle(editor_.file.Message());
        desk_.needs.base.pump.Pause("a title", TitleMs);
        desk_.SetTitle(title);
    });
    return refused;
}

void ListBuilding::Named(bool saved) {
    desk_.Run("UCKeyboard_OK", [&] {
        if (saved) return Leave();
        if (desk_.list.ItemCount() > 0) return;
        desk_.rows.AddBack(desk_.needs.MediaDir());
        desk_.Finish();
    });
}

// To the list that was edited, or to where the new one would have come from.
void ListBuilding::Leave() {
    const SavedList& file = editor_.file;
    const std::string path = file.Path(), opened = file.OpenedPath(), name = file.DefaultName();
    const bool channels = file.OfChannels();
    editor_.End();
    Focus(false);
    desk_.view.LayOut(desk_.needs.state.ListMode);
    if (!FileExists(path)) return channels ? lists_.xm.ShowTop() : lists_.Populate();
    if (path != opened) {
        if (!opened.empty()) lists_.trail.Pop();
        lists_.trail.Push(channels ? Descriptor::XM("List", path) : Descriptor::File(path));
        desk_.SetTitle(name);
    }
    channels ? lists_.xm.ShowChannelList(path) : lists_.playlists.ReadList(path);
}

void ListBuilding::Enter() {
    if (desk_.Building() && editor_.Editing()) return;
    if (desk_.Building()) desk_.needs.state.ListMode = ListFromMenu;
    Drop();
}

void ListBuilding::Drop() {
    editor_.Drop();
    Focus(false);
    desk_.view.LayOut(desk_.needs.state.ListMode);
}

void ListBuilding::FallBack() {
    desk_.needs.state.ListMode = ListFromMenu;
    desk_.needs.state.CurrentPath = desk_.needs.MediaDir();
    Drop();
    lists_.PopulateAnew();
}

} // namespace vk
