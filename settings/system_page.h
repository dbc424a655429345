// The settings page of the machine around the system: version, frame, drive, desktop, reset.
#pragma once

#include "core/base.h"
#include "core/frame_size.h"
#include "library/catalogue/updates.h"
#include "platform/desktop.h"
#include "settings/pages/page.h"

#include <functional>
#include <optional>
#include <string>

namespace vk {

class SystemPage {
  public:
    /// All outlives this object; `exitApplication` ends the process, nothing more is asked.
    struct Needs {
        Base& base;
        Desktop& desktop;
        CatalogueUpdates& catalogue;
        std::function<void()> exitApplication;
        std::function<void()> changed;      ///< something that is shown has come later
        std::function<void()> resize;       ///< has all screens laid out for the size set
        std::function<FrameSize()> display; ///< what there is room for
    };
    explicit SystemPage(Needs needs) : n_(std::move(needs)) {}
    ~SystemPage();
    SystemPage(const SystemPage&) = delete;
    SystemPage& operator=(const SystemPage&) = delete;

    Page Describe();

  private:
    void btnLaunchExplorer_Click();
    void chkbxMakeVKdefaultShell_Click();
    void chkDisableAutoPlay_Click();
    void SetAutoPlay(bool quiet);
    void Reset();
    void AskAutoPlay();
    std::vector<Row> SizeRows();
    std::string SizeText() const;
    void StepSize(int step);
    Row SideRow(const Setting<std::int32_t>& setting, std::int32_t FrameSize::*side);
    Row DriveRow();
    Row DesktopRow(const char* caption, void (SystemPage::*click)(),
                   const std::function<std::optional<bool>()>& on, const char* name);

    Needs n_;
    std::string told_;
    std::optional<std::int32_t> autoPlay_; ///< as the desktop told
    bool asking_ = false;
};

} // namespace vk
