#include "library/browser/list_desk.h"

#include "library/browser/list_modes.h"
#include "platform/paths.h"

namespace vk {

namespace {

constexpr std::int64_t PulseMs = 5;

} // namespace

void ListDesk::Start() {
    needs.app.ListBusy = true;
    ParentName.clear();
    PlaylistView = XMView = false;
    list.numberedList = needs.settings.values.numberedList;
    rows.Clear();
}

void ListDesk::Finish() {
    list.LoadList();
    view.ReDrawList();
    view.HideLoading();
}

bool ListDesk::Pulse() {
    const std::int64_t now = needs.clock.TickMs();
    if (now - lastPulse_ >= PulseMs) {
        lastPulse_ = now;
        needs.clock.DoEvents();
        needs.app.ListBusy = true; // whatever ran may have finished a list of its own
    }
    return !aborted_;
}

void ListDesk::Try(const std::string& name, const std::function<void()>& build) {
    try {
        build();
    } catch (const std::exception& error) {
        needs.report.Log("An error occured in playlists." + name + " " + error.what());
        Say("The list could not be read.");
    }
}

void ListDesk::SetTitle(const std::string& title) {
    title_ = title;
    view.SetTitle(title);
}

bool ListDesk::Showable(const std::string& path) const {
    return IsShowable(needs.app, needs.state.ListMode, path);
}

int ListDesk::AddCatalogueFiles(const std::vector<CatalogueFile>& files) {
    std::int32_t number = 0;
    for (const CatalogueFile& file : files) {
        if (!Pulse()) break;
        if (Showable(JoinPath(needs.MediaDir(), file.path)))
            rows.AddFileRow(++number, file.artist, file.title, file.path, false);
    }
    return number;
}

} // namespace vk
