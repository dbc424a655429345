#include "settings/shell_page.h"

#include <utility>

namespace vk {

ShellPage::ShellPage(SettingsShell::Needs needs, PageView& view)
    : clock_(needs.base.clock), locale_(needs.base.locale), desktop_(needs.desktop), view_(view),
      shell_(std::move(needs), *this) {}

void ShellPage::EnableLeaving(bool exitApp, bool done) {
    exitApp_ = exitApp;
    done_ = done;
    view_.Draw();
}

void ShellPage::Done() {
    if (done_) shell_.DoneButton_Click();
}

std::string ShellPage::Database() const {
    return "Database: " + shell_.DBStatusText() + "     " + shell_.DBActionText();
}

std::vector<Row> ShellPage::Rows() {
    const Settings& s = shell_.Values();
    Row clock = ProgressRow([this] { return locale_.ShortTime(clock_.Now()); });
    clock.width = 4;
    Row database = ProgressRow([this] { return Database(); },
                               [this] { return shell_.DBUpdating() ? shell_.DBPercent() : -1; });
    database.width = Row::Whole - clock.width;
    return {{.text = [&s] { return "Media folder\nCurrent   -   " + s.MediaDir; },
             .use = [this] { shell_.btnmediadir_Click(); },
             .width = Row::Whole,
             .name = "btnMediaDir",
             .changes = {&setting::MediaDir}},
            {.text = [&s] { return "Playlist folder\nCurrent  -  " + s.PlaylistDir; },
             .use = [this] { shell_.btnPlaylistDir_Click(); },
             .width = Row::Whole,
             .name = "btnPlaylistDir",
             .changes = {&setting::PlaylistDir}},
            {.text =
                 [this] {
                     return std::string(shell_.DBUpdating() ? "Stop the update"
                                                            : "Update database");
                 },
             .use = [this] { shell_.bDBForceUpdate_Click(); },
             .width = Row::Third,
             .name = "bDBForceUpdate"},
            ButtonRow(
                "Delete database", [this] { shell_.bDeleteDB_Click(); }, Row::Third, "bDeleteDB"),
            {.text = [&s] { return OnOff(setting::manualdb.caption, s.manualdb); },
             .use = [this] { shell_.chkDBManualUpdate_Click(); },
             .width = Row::Third,
             .name = "chkDBManualUpdate",
             .changes = {&setting::manualdb}},
            clock,
            database};
}

Page ShellPage::Describe() {
    Row done = ButtonRow(
        "Done", [this] { Done(); }, Row::Half, "donebutton");
    done.usable = [this] { return done_; };
    Row exit = ButtonRow(
        "Exit App", [this] { shell_.bExitApp_Click(); }, Row::Half, "bExitApp");
    exit.usable = [this] {
        return exitApp_ && (!desktop_.IsShell() || desktop_.HasAnotherShell());
    };
    return {.name = "settings",
            .tab = "Library",
            .rows = Rows(),
            .footer = {done, exit},
            .heading = [this] { return shell_.TopInfo(); },
            .open = [this] { shell_.ReShow(); },
            .quit = [this] { Done(); }};
}

} // namespace vk
