#include "browser/list_desk.h"

#include "browser/list_modes.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

namespace {

constexpr std::int64_t CountMs = 1000;

// In groups of three digits.
std::string Grouped(std::size_t number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3;)
        text.insert(at -= 3, ",");
    return text;
}

} // namespace

// An operation may lead to another one, as to a screen that comes straight back.
void ListDesk::Run(const char* name, const std::function<void()>& operation) {
    Work work(needs.base.pump, name);
    Work* const outer = std::exchange(work_, &work);
    notice_.Drop();
    TrapAndLog(needs.base.report, std::string("An error occured in playlists.") + name + " ",
               operation);
    work_ = outer;
    if (const std::string notice = std::exchange(toSay_, {}); !notice.empty()) notice_.Show(notice);
    if (!notice_.Showing()) view.HideLoading();
}

void ListDesk::Say(const std::string& notice) {
    if (work_)
        toSay_ = notice;
    else
        notice_.Show(notice);
}

void ListDesk::Hush() {
    notice_.Drop();
    view.HideLoading();
}

void ListDesk::Start() {
    ++started_;
    ParentName.clear();
    PlaylistView = XMView = false;
    list.HideDupes = false;
    list.numberedList = needs.Options().numberedList;
    rows.Clear();
}

void ListDesk::Finish() {
    list.LoadList();
    view.ReDrawList();
    view.HideLoading();
}

void ListDesk::ShowBusy(const std::string& label) {
    busy_ = label;
    lastCount_ = needs.base.clock.TickMs();
    view.ShowLoading(label);
}

bool ListDesk::Pulse(std::size_t done) {
    const std::int64_t now = needs.base.clock.TickMs();
    if (done > 0 && now - lastCount_ >= CountMs) {
        lastCount_ = now;
        view.ShowLoading(busy_ + "  " + Grouped(done));
    }
    if (!work_) return true;
    if (needs.base.screens.CurrentForm.Text().empty()) work_->End(); // the system ends
    return work_->Pulse();
}

bool ListDesk::Try(const std::string& name, const std::function<void()>& build) {
    try {
        build();
        return !Aborted();
    } catch (const std::exception& error) {
        needs.base.report.Log("An error occured in playlists." + name + " " + error.what());
        Say("The list could not be read.");
        return false;
    }
}

void ListDesk::SetTitle(const std::string& title) {
    title_ = title;
    view.SetTitle(title);
}

bool ListDesk::Accepts(const std::string& path) const {
    return ModeAccepts(needs.state.ListMode, GetMediaType(needs.library.extensions, path));
}

bool ListDesk::Showable(const std::string& path) const {
    return IsShowable(needs.library.extensions, needs.state.ListMode, path);
}

void ListDesk::AddEmptyNotice(const std::string& text, const std::string& picture) {
    if (!Aborted()) rows.AddNotice(text, picture);
}

int ListDesk::AddCatalogueFiles(const std::vector<CatalogueFile>& files) {
    int number = 0;
    for (const CatalogueFile& file : files)
        if (!AddCatalogueFile(file, number)) break;
    return number;
}

bool ListDesk::AddCatalogueFile(const CatalogueFile& file, int& number) {
    if (!Pulse(static_cast<std::size_t>(number))) return false;
    if (Showable(JoinPath(needs.MediaDir(), file.path)))
        rows.AddFileRow(++number, file.artist, file.title, file.path, false);
    return true;
}

void ListDesk::SelectMatch(const std::string& descriptor) {
    const int row = descriptor.empty() ? -1 : list.MatchItem(descriptor);
    if (row <= 0) return;
    list.SelectItem(row);
    view.ReDrawList();
}

} // namespace vk
