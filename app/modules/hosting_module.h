// Programs of the machine beside the system, and their tool bar.
#pragma once

#include "app/modules/input_module.h"
#include "app/modules/playback_module.h"
#include "browser/browser_needs.h"
#include "hosting/hosting.h"
#include "hosting/screen/ext_app_tools.h"
#include "settings/external_app_page.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

/// What runs outlives a reload of the screens. The tool bar is made when it is first needed.
class HostingModule : public Module {
  public:
    HostingModule(Host& host, LibraryModule& library, InputModule& input, PlaybackModule& playback);

    std::vector<Page> Pages() override;
    void SettingsRead() override;
    void Unload() override;
    void SessionEnds() override { host_.LeaveScreen(ToolBarName); }
    void Close(bool osShutdown) override;

    /// As the browser's list of programs needs it.
    BrowserPrograms Programs();
    /// The machine's programs, read once.
    const std::vector<InstalledProgram>& Installed();

  private:
    std::string Open(const ListedApp& app);
    std::vector<std::string> Loaded();
    std::string IconOf(const std::string& program);
    ToolBar::Needs BarNeeds();
    void Load();

    Host& host_;
    LibraryModule& library_;
    InputModule& input_;
    PlaybackModule& playback_;
    AppsList list_;
    std::unique_ptr<ForeignWindows> windows_;
    std::unique_ptr<Hosting> hosting_;
    std::unique_ptr<ExtAppTools> screen_;
    ExternalAppPage page_{host_.base, list_, [this] { return Installed(); }};
    std::vector<InstalledProgram> installed_;
    bool read_ = false;
};

} // namespace vk
