#include "browser/browser.h"

#include "browser/browse_history.h"

namespace vk {

namespace {

constexpr int NoticeSeconds = 5;
constexpr int SecondMs = 1000;

} // namespace

Browser::Browser(BrowserNeeds needs, BrowserModels models, BrowserView& view)
    : needs_(std::move(needs)), list_(models.list), rightList_(models.rightList),
      keyboard_(models.keyboard), view_(view), desk_(needs_, list_, view), builder_(desk_),
      sqlLists_(desk_), searches_(desk_), xmLists_(desk_),
      editor_(desk_, xmLists_, models.rightList),
      Timer2(needs_.clock.MakeTimer([this] { ShowState(); })),
      Timer4(needs_.clock.MakeTimer([this] { TickNotice(); })) {
    keyboard_.onOK = [this](const std::string& text) { TakeText(text); };
    keyboard_.onEscape = [this] { CloseKeyboard(); };
}

void Browser::Run(const char* name, const std::function<void()>& operation) {
    const ListDesk::Operation present(desk_, name);
    noticeSeconds_ = 0;
    TrapAndLog(needs_.report, std::string("An error occured in playlists.") + name + " ",
               operation);
    if (const std::string notice = desk_.TakeNotice(); !notice.empty()) ShowNotice(notice);
    CloseLoading();
}

// Among the lists that are built from, what ended the reading of one has done enough.
bool Browser::OnlyEnds() const {
    return needs_.commands.Following() && desk_.Building();
}

void Browser::ReShow() {
    Run("ReShow", [&] {
        needs_.screens.CurrentForm = BrowserName;
        view_.ShowAtFront();
        if (KeyboardShown) HideOSK();
        EnterMode();
        HistoryDirty = RecurseArmed = desk_.SqlView = false;
        if (!desk_.Building()) BrowseHistory.clear();
        view_.SetButton(BrowserButton::Recurse, "recurse.gif");
        Timer2->Start(SecondMs);
        Timer4->Start(SecondMs);
        ShowState();
        SetPlayerButton();
        Populate();
        needs_.screens.HideOthers(BrowserName);
    });
}

// A list that is being built is there again when the mode is still that; another mode drops it.
void Browser::EnterMode() {
    if (desk_.Building() && editor_.Editing()) return;
    if (desk_.Building()) needs_.state.ListMode = ListFromMenu;
    DropEditor();
}

void Browser::switchingform() {
    view_.HideLoading();
    Timer4->Stop();
    Timer2->Stop();
    // A line end inside a file name would end the line of the settings file.
    const bool fits = BrowseHistory.find_first_of("\r\n") == std::string::npos;
    const char* section = desk_.XMView ? "xmpcr_tuner" : "main";
    if (HistoryDirty && fits) needs_.settings.Write(section, "BrowseHistory", BrowseHistory);
    HistoryDirty = false;
}

void Browser::Form_Unload(bool osShutdown) {
    if (osShutdown) needs_.report.Log("form unloaded by administrative request - os shutdown");
    if (needs_.screens.CurrentForm != BrowserName) return;
    switchingform();
    needs_.screens.CurrentForm.clear();
}

void Browser::Populate() {
    const bool applications = needs_.state.ListMode == ListApplications;
    view_.SetButton(BrowserButton::Applications, applications ? "lists.gif" : "gps.gif");
    const bool restore = std::exchange(needs_.state.RestoreHistory, false);
    catalogueShown_ = needs_.CatalogueOnLine();
    if (desk_.Building() && editor_.OfChannels()) return xmLists_.ShowAllChannels();
    builder_.Populate();
    if (restore && !desk_.Building() && needs_.CatalogueOnLine() &&
        needs_.settings.values.UseBrowseHistory)
        RestoreBrowseHistory();
}

// The list of `CurrentPath` as if nothing had been chosen on the way there.
void Browser::PopulateAnew() {
    desk_.SqlView = false;
    BrowseHistory.clear();
    Populate();
}

// Where every failure ends: the top of the media folder.
void Browser::FallBack() {
    needs_.state.ListMode = ListFromMenu;
    needs_.state.CurrentPath = needs_.MediaDir();
    DropEditor();
    PopulateAnew();
}

void Browser::MoveList(void (ListModel::*move)()) {
    if (KeyboardShown) return;
    ((RightListFocus ? rightList_ : list_).*move)();
    RightListFocus ? view_.ReDrawRightList() : view_.ReDrawList();
}

void Browser::MoveUp() {
    if (KeyboardShown) return keyboard_.MoveUp();
    MoveList(&ListModel::MoveUp);
}

void Browser::MoveDown() {
    if (KeyboardShown) return keyboard_.MoveDown();
    MoveList(&ListModel::MoveDown);
}

void Browser::PgUp() {
    MoveList(&ListModel::PageUp);
}

void Browser::PgDn() {
    MoveList(&ListModel::PageDown);
}

void Browser::MoveBack() {
    if (needs_.commands.Following()) return;
    if (KeyboardShown) return keyboard_.MoveLeft();
    if (RightListFocus) return ToggleListFocus();
    Run("MoveBack", [&] {
        if (desk_.rows.HasBack()) {
            list_.SelectItem(0);
            Choose();
        } else if (desk_.PlaylistView) { // the favourites have no row that leads back
            const std::string comeFrom = PopHistory(BrowseHistory);
            if (desk_.SqlView)
                sqlLists_.Show(SplitDescriptor("SQL:BrowsePlaylist"), {});
            else
                Populate();
            SelectMatch(comeFrom);
        }
    });
}

void Browser::MoveAhead() {
    if (KeyboardShown) return keyboard_.MoveRight();
    if (desk_.Building()) return ToggleListFocus();
    if (list_.GetSelectedSongNum() == 0 && desk_.rows.HasBack()) return;
    Run("MoveAhead", [&] {
        const std::string descriptor = list_.GetSelectedFileName();
        const RowDescriptor row = SplitDescriptor(descriptor);
        if (row.kind == "FREQ") return DeleteFreq(row);
        if (needs_.state.ListMode == ListApplications || row.kind != "PATH") return;
        PushHistory(BrowseHistory, descriptor);
        builder_.RecurseFolder(row.Rest());
    });
}

void Browser::VolUp() {
    const auto* player = needs_.screens.Find("playmp3");
    if (player) ShowChangeOfVolume(player->VolUp);
}

void Browser::VolDown() {
    const auto* player = needs_.screens.Find("playmp3");
    if (player) ShowChangeOfVolume(player->VolDown);
}

void Browser::ShowChangeOfVolume(const std::function<void()>& change) {
    const AppState& app = needs_.app;
    const auto before = std::pair(app.VolumePercent, app.bMuted);
    change();
    if (before == std::pair(app.VolumePercent, app.bMuted)) return;
    if (needs_.screens.CurrentForm != BrowserName) return;
    ShowNotice("Volume : " + (app.bMuted ? "Muted" : std::to_string(app.VolumePercent) + "%"));
}

void Browser::doquit() {
    CloseToolFrame();
    if (needs_.screens.CurrentForm != BrowserName) return;
    if (OnlyEnds()) return;
    if (KeyboardShown)
        keyboard_.KeyClick(KeyboardModel::EscKey);
    else if (desk_.Building())
        EndBuilding();
    else
        Leave();
}

void Browser::Leave() {
    switchingform();
    desk_.SetTitle("");
    const bool toPlayer = std::exchange(needs_.state.FromPlayer, false);
    needs_.audio.bStartPlaying = false; // what plays goes on as it is
    if (!toPlayer || !needs_.screens.ReDisplay("playmp3")) needs_.screens.Show("velkorandum");
}

void Browser::Swap() {
    if (needs_.audio.PlayMode == PlayNone) return;
    if (!desk_.Building() && !KeyboardShown) needs_.state.FromPlayer = true;
    doquit();
}

void Browser::MouseWheel(int delta) {
    if (delta == 0) return;
    if (needs_.settings.values.MouseFunction == 0) return delta > 0 ? MoveUp() : MoveDown();
    for (std::int32_t step = 0; step < needs_.settings.values.WheelSteps(); ++step)
        delta > 0 ? VolUp() : VolDown();
}

void Browser::ShowNotice(const std::string& text) {
    view_.ShowLoading(text);
    noticeSeconds_ = NoticeSeconds;
}

void Browser::CloseLoading() {
    if (noticeSeconds_ == 0) view_.HideLoading();
}

void Browser::TickNotice() {
    if (noticeSeconds_ > 0 && --noticeSeconds_ == 0) CloseLoading();
}

// What can change by itself: the time, whether the player plays, and the catalogue.
void Browser::ShowState() {
    const bool playing = needs_.audio.PlayMode != PlayNone && !needs_.audio.bPaused;
    view_.SetButton(BrowserButton::PlayPause, playing ? "pause.gif" : "play.gif");
    const DateTime now = needs_.clock.Now();
    view_.SetClock(needs_.locale.LongDate(now) + "    " + needs_.locale.ShortTime(now));
    if (needs_.CatalogueOnLine() != catalogueShown_) FollowCatalogue();
}

// The top level offers the catalogue as soon as it can be browsed, and only so long.
void Browser::FollowCatalogue() {
    const bool top = needs_.state.ListMode != ListApplications && !desk_.rows.HasBack() &&
                     !desk_.PlaylistView && !desk_.XMView;
    if (!top || KeyboardShown || noticeSeconds_ > 0) return;
    needs_.commands.Run([this] {
        Run("Timer2", [&] {
            const std::string selected = list_.GetSelectedFileName();
            Populate();
            SelectMatch(selected);
        });
    });
}

} // namespace vk
