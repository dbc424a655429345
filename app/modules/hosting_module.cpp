#include "app/modules/hosting_module.h"

#include <algorithm>
#include <utility>

namespace vk {

HostingModule::HostingModule(Host& host, LibraryModule& library, InputModule& input,
                             PlaybackModule& playback)
    : Module(host.modules), host_(host), library_(library), input_(input), playback_(playback),
      list_(host.settings.File("apps.lst"), host.log) {
    if (host.ports.screen.foreignWindows) windows_ = host.ports.screen.foreignWindows();
    if (windows_)
        hosting_ = std::make_unique<Hosting>(
            Hosting::Needs{host.base, host.ports.machine.programs, *windows_});
}

ToolBar::Needs HostingModule::BarNeeds() {
    return {.base = host_.base,
            .hosting = *hosting_,
            .windows = *windows_,
            .surfaces = host_.surfaces,
            .browser = library_.browser,
            .loudness = playback_.TheLoudness(),
            .transport = playback_.transport,
            .keys = host_.keys,
            .SaveAudioData = [this] { playback_.SaveAudioData(); },
            .press =
                [this](const std::string& code) {
                    host_.window.onKey(code, false);
                    host_.window.onKeyUp(code);
                },
            .checkDaylight = [this] { host_.daylight.Check(); }};
}

void HostingModule::Load() {
    screen_ = std::make_unique<ExtAppTools>(host_.controls, BarNeeds());
    screen_->onKey = [this](const std::string& code, bool repeat) {
        return host_.window.onKey && host_.window.onKey(code, repeat);
    };
    screen_->onKeyUp = [this](const std::string& code) {
        if (host_.window.onKeyUp) host_.window.onKeyUp(code);
    };
    screen_->enterButtons = [this] { input_.EnterButtons(); };
    host_.screens.Add(ToolBarName, screen_->bar(), *screen_);
}

// The folder is ours by now, and nobody else's programs are taken for ours.
void HostingModule::SettingsRead() {
    if (hosting_) hosting_->EndLeftBehind();
}

void HostingModule::Unload() {
    host_.screens.Remove(ToolBarName);
    screen_.reset();
}

BrowserPrograms HostingModule::Programs() {
    return {.Loaded = [this] { return Loaded(); },
            .Icon = [this](const std::string& program) { return IconOf(program); },
            .Open = [this](const ListedApp& app) { return Open(app); }};
}

std::vector<std::string> HostingModule::Loaded() {
    std::vector<std::string> names;
    if (!hosting_) return names;
    hosting_->Sweep();
    for (const RunningApp& app : hosting_->Running())
        names.push_back(app.name);
    return names;
}

std::string HostingModule::IconOf(const std::string& program) {
    const auto& all = Installed();
    const auto found = std::ranges::find(all, program, &InstalledProgram::program);
    return found == all.end() ? std::string() : found->icon;
}

std::string HostingModule::Open(const ListedApp& app) {
    if (!hosting_) return "Programs cannot be shown on this display.";
    if (!hosting_->StartOrResume(app)) return hosting_->Said();
    if (!screen_) Load();
    screen_->bar().ReShow();
    return {};
}

const std::vector<InstalledProgram>& HostingModule::Installed() {
    if (!std::exchange(read_, true) && host_.ports.machine.installed)
        installed_ = host_.ports.machine.installed();
    return installed_;
}

std::vector<Page> HostingModule::Pages() {
    return {page_.Describe()};
}

void HostingModule::Close(bool /*osShutdown*/) {
    if (hosting_) hosting_->CloseAll();
}

} // namespace vk
