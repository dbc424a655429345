#include "browser/chooser.h"

#include "browser/applications.h"
#include "core/text.h"
#include "library/tags/media_type.h"

#include <map>
#include <utility>

namespace vk {

Chooser::Chooser(BrowserLists& lists, ListBuilding& building, TextEntry& text,
                 std::function<void()> leave)
    : lists_(lists), desk_(lists.desk), building_(building), leave_(std::move(leave)),
      handOver_(lists, building, leave_), presets_(lists.desk, text),
      searches_(lists, text, [this] { Choose(); }) {}

void Chooser::Choose() {
    ErrorReport& report = desk_.needs.base.report;
    try {
        desk_.view.ShowLoading("Busy");
        ChooseRow();
    } catch (const std::exception& error) {
        const int number = ErrorNumber(error);
        report.Log("Error in PlayList.Runok  Error:" + std::to_string(number));
        building_.FallBack();
        report.ReportError("An error occured in playlists.runok ", error.what(), number);
    }
}

void Chooser::ChooseRow() {
    const std::string text = desk_.list.GetSelectedFileName();
    if (text.empty()) return;
    if (desk_.needs.state.ListMode == ListApplications) return OpenApplication(desk_, leave_);
    const Descriptor row = Descriptor::Parse(text);
    if (desk_.Building() && (row.kind == RowKind::File || row.kind == RowKind::XM))
        return building_.AddSelected();
    const std::string before = lists_.trail.Text();
    const std::string comeFrom = TrackHistory(row);
    const int lists = desk_.ListsStarted();
    Follow(row);
    // There is no way back from what was not entered.
    if (lists == desk_.ListsStarted()) lists_.trail.Set(before);
    if (desk_.needs.Options().UseBrowseHistory) desk_.SelectMatch(comeFrom);
}

void Chooser::Follow(const Descriptor& row) {
    static const std::map<RowKind, Handler> kinds = {
        {RowKind::File, &Chooser::OpenFile},   {RowKind::Path, &Chooser::OpenPath},
        {RowKind::Sql, &Chooser::OpenSql},     {RowKind::Freq, &Chooser::OpenPreset},
        {RowKind::Edit, &Chooser::OpenEditor}, {RowKind::XM, &Chooser::OpenXM}};
    if (const auto handler = kinds.find(row.kind); handler != kinds.end())
        (this->*handler->second)(row);
}

// Returns the element that the way back came from, "" on the way down.
std::string Chooser::TrackHistory(const Descriptor& row) {
    if (desk_.Building()) return {};
    const bool back = desk_.list.GetSelectedSongNum() == 0 && desk_.rows.HasBack();
    if (back && !lists_.trail.Empty()) return lists_.trail.Pop();
    if (row.kind != RowKind::Edit) lists_.trail.Push(row);
    return {};
}

void Chooser::SetRecurse(bool armed) {
    recurseArmed_ = armed;
    desk_.view.SetButton(BrowserButton::Recurse, armed ? "recursesel.gif" : "recurse.gif");
}

void Chooser::OpenPath(const Descriptor& row) {
    const bool recurse = recurseArmed_;
    SetRecurse(false);
    desk_.SqlView = false;
    if (recurse) return lists_.folders.RecurseFolder(row.body);
    if (row.body == desk_.needs.MediaDir() && !desk_.Building()) lists_.trail.Clear();
    std::string& path = desk_.needs.state.CurrentPath;
    path = row.body;
    lists_.Populate();
    if (path == row.body) return;
    if (!desk_.Building()) lists_.trail.Clear();
    desk_.Say("The folder is not available.");
}

void Chooser::OpenFile(const Descriptor& row) {
    static const std::map<int, Handler> types = {{MediaAudio, &Chooser::PlayAudio},
                                                 {MediaVideo, &Chooser::PlayVideo},
                                                 {MediaPlaylist, &Chooser::OpenPlaylist},
                                                 {MediaPresetList, &Chooser::OpenPresets}};
    if (row == Descriptor::FilmDisc()) return handOver_.PlayDisc();
    const auto handler = types.find(GetMediaType(desk_.needs.library.extensions, row.body));
    if (handler != types.end()) (this->*handler->second)(row);
}

// The heading is the row's text without its running number.
void Chooser::OpenPlaylist(const Descriptor& row) {
    const std::string text = desk_.list.GetSelectedItemText();
    const auto dash = text.find(" - ");
    const bool numbered = dash != std::string::npos && IsNumeric(text.substr(0, dash));
    desk_.SetTitle(numbered ? text.substr(dash + 3) : text);
    lists_.playlists.ReadList(row.body);
}

void Chooser::OpenXM(const Descriptor& row) {
    desk_.SqlView = false;
    row.IsChannel() ? handOver_.TuneChannel(row) : lists_.xm.Show(row);
}

// Where there is an FM radio it can be listened to; else, or by the other answer, it gets another
// label.
void Chooser::OpenPreset(const Descriptor& row) {
    const auto& hasTuner = desk_.needs.players.HasTuner;
    const bool there = desk_.needs.Options().dlink_enabled && hasTuner && hasTuner(PlayFM);
    if (there && desk_.needs.base.dialogs.AskYesNo("Listen to " + row.body +
                                                   " MHz?\nNo gives it another label."))
        return handOver_.TunePreset(row.body);
    presets_.AskLabel(row.body);
}

void Chooser::OpenEditor(const Descriptor& row) {
    SetRecurse(false);
    building_.Open(row.body);
}

void Chooser::Back() {
    if (desk_.rows.HasBack()) {
        desk_.list.SelectItem(0);
        return Choose();
    }
    if (!desk_.PlaylistView) return;
    // The favourites have no row that leads back.
    const std::string comeFrom = lists_.trail.Pop();
    if (desk_.SqlView)
        lists_.sql.Show(Descriptor::Sql("BrowsePlaylist"), {});
    else
        lists_.Populate();
    desk_.SelectMatch(comeFrom);
}

void Chooser::Ahead() {
    const Descriptor row = Descriptor::Parse(desk_.list.GetSelectedFileName());
    if (desk_.needs.state.ListMode == ListApplications) return;
    if (desk_.list.GetSelectedSongNum() == 0 && desk_.rows.HasBack()) return;
    if (row.kind == RowKind::Freq) return presets_.DeleteFreq(row.body);
    if (row.kind != RowKind::Path) return;
    lists_.trail.Push(row);
    lists_.folders.RecurseFolder(row.body);
}

} // namespace vk
