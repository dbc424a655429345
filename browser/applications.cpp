#include "browser/applications.h"

#include "core/text.h"
#include "hosting/command_line.h"

#include <algorithm>

namespace vk {

void PopulateApplications(ListDesk& desk) {
    desk.Start();
    desk.SetTitle("External Applications");
    const BrowserPrograms& programs = desk.needs.programs;
    const Base& base = desk.needs.base;
    const auto apps = AppsList(base.settings.File(AppsListName), base.log).Read();
    const auto loaded = programs.Loaded ? programs.Loaded() : std::vector<std::string>();
    for (const ListedApp& app : apps) {
        const bool runs = std::ranges::count(loaded, app.name) > 0;
        const std::string icon =
            programs.Icon ? programs.Icon(CommandLine::Parse(app.command).program) : "";
        desk.list.AddItem((runs ? "LOADED: " : "") + ToUtf8(app.name), "", app.Line(), icon);
    }
    if (apps.empty()) desk.rows.AddNotice("You have no applications configured");
    desk.Finish();
}

void OpenApplication(ListDesk& desk, const std::function<void()>& leave) {
    const auto app = ListedApp::Parse(desk.list.GetSelectedFileName());
    if (!app) return;
    Base& base = desk.needs.base;
    if (!desk.needs.programs.Open) {
        base.report.Log("no program can be started: " + ToUtf8(app->Line()));
        return desk.Say("Applications cannot be started.");
    }
    leave();
    desk.ShowBusy("Starting " + ToUtf8(app->name));
    const std::string failed = desk.needs.programs.Open(*app);
    if (failed.empty() || base.pump.Closed()) return;
    base.screens.Show("playlists");
    desk.Say(ToUtf8(failed));
}

} // namespace vk
