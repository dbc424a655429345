// The settings screen: the two folders, the catalogue, and the way back.
#pragma once

#include "settings/settings_shell.h"
#include "skin/controls/control_context.h"
#include "skin/controls/shaded_label.h"

#include <QProgressBar>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// Large rows, moved through by the arrows, used by Enter or touch; Escape is Done.
class settings : public QWidget, public SettingsView {
  public:
    settings(const ControlContext& context, SettingsShell::Needs needs, QWidget* parent);
    ~settings() override;

    void runok();
    void MoveUp() { MoveTo(current_ - 1); }
    void MoveDown() { MoveTo(current_ + 1); }
    void MoveBack() { MoveUp(); }
    void MoveAhead() { MoveDown(); }
    void VolUp() {}
    void VolDown() {}
    /// Done.
    void doquit();
    void ReShow();
    void DoLayout();
    void switchingform() {}
    void Hide();
    bool Form_KeyDown(const std::string& code) { return DoAction(InputCode(code, keys_)); }
    bool DoAction(const InputCode& code);

    SettingsShell& shell() { return shell_; }

    void ShowShell() override;
    void EnableLeaving(bool exitApp, bool done) override;
    void ShowTexts() override;
    void SetTopInfo(const std::string& text) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Row {
        std::unique_ptr<ShadedLabel> label;
        std::string caption;
        std::function<void()> use;
        bool enabled = true;
    };
    void AddRow(const char* caption, std::function<void()> use);
    void MoveTo(int row);
    void Use(int row);
    void DrawRows();

    ControlContext context_;
    SettingsShell shell_;
    const KeyMap& keys_;
    const LocaleInfo& locale_;
    ShadedLabel lblSettingsTopInfo;
    ShadedLabel lblTime;
    ShadedLabel lblDBStatus; ///< state of the catalogue, and what an update is doing
    QProgressBar pbDBStatus; ///< how far the update is
    std::vector<Row> rows_;
    std::unique_ptr<Timer> timer1_;
    int current_ = 0;
};

} // namespace vk
