// The first settings page: folders, catalogue, the way out.
#pragma once

#include "settings/pages/settings_pages.h"
#include "settings/settings_shell.h"

#include <string>

namespace vk {

/// The shell and the page that shows it.
class ShellPage : public SettingsView {
  public:
    /// `view` draws the page; both it and what `needs` names outlive this object.
    ShellPage(SettingsShell::Needs needs, PageView& view);

    Page Describe();
    SettingsShell& shell() { return shell_; }

    void ShowShell() override { view_.ShowPage(); }
    void EnableLeaving(bool exitApp, bool done) override;
    void ShowTexts() override { view_.Draw(); }

  private:
    std::vector<Row> Rows();
    std::string Database() const;
    void Done();

    Clock& clock_;
    const LocaleInfo& locale_;
    const Desktop& desktop_;
    PageView& view_;
    SettingsShell shell_;
    bool exitApp_ = true, done_ = true; ///< the ways out that can be used
};

} // namespace vk
