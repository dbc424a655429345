// The settings: their pages, and the window that draws the one that is shown.
#pragma once

#include "settings/debug_page.h"
#include "settings/keyboard_learning.h"
#include "settings/looks_preview.h"
#include "settings/pages/settings_pages.h"
#include "settings/remote_learning.h"
#include "settings/screen/plate_label.h"
#include "settings/shell_page.h"
#include "settings/system_page.h"
#include "skin/controls/control_context.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace vk {

/// Tabs, a text, large plates. The arrows move over them, Enter or a touch uses one, Escape leads
/// back.
class settings : public QWidget, public PageView {
  public:
    /// `more` are the pages of other subsystems, behind its own.
    settings(const ControlContext& context, SettingsShell::Needs shell,
             RemoteLearning::Needs remote, std::vector<Page> more, QWidget* parent);
    ~settings() override;

    ShellPage& shellPage() { return shellPage_; }
    SettingsShell& shell() { return shellPage_.shell(); }
    const KeyboardLearning& keyboard() const { return keyboard_; }
    const RemoteLearning& remote() const { return remote_; }
    const std::vector<Page>& Pages() const { return pages_.All(); }
    /// Makes every page known by its name, or unknown.
    void AddTo(Screens& screens) { pages_.AddTo(screens); }
    void RemoveFrom(Screens& screens) const { pages_.RemoveFrom(screens); }

    void DoLayout() override;
    void ShowPage() override;
    void HidePage() override;
    void Draw() override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    PlateLabel& LabelOf(std::size_t plate);
    QRect BoxOf(const Plate& plate) const;

    ControlContext context_;
    ShellPage shellPage_;
    KeyboardLearning keyboard_;
    RemoteLearning remote_;
    DebugPage debugPage_;
    SystemPage systemPage_;
    LooksPreview preview_;
    SettingsPages pages_;
    ShadedLabel heading_;
    std::vector<std::unique_ptr<PlateLabel>> labels_;
    std::unique_ptr<Timer> timer1_;
};

} // namespace vk
