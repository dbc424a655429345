// The tool bar over a program: what is drawn and what is touched. What it does is the logic's.
#pragma once

#include "hosting/tool_bar.h"
#include "skin/controls/control_context.h"
#include "skin/controls/focused_buttons.h"
#include "skin/controls/touch_button.h"
#include "skin/controls/uc_scroll_text.h"
#include "skin/controls/wheel_ticks.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// A window of its own, above those of all programs and out of the window manager's hands. A touch
/// of it takes the keyboard from nobody.
class ExtAppTools : public QWidget, private ToolBarView {
  public:
    ExtAppTools(const ControlContext& context, ToolBar::Needs needs);
    ~ExtAppTools() override;

    void Hide() { bar_.Hidden(); }
    void DoLayout();
    ToolBar& bar() { return bar_; }
    FocusedButtons& Buttons() { return focus_; }

    /// A key while the bar has the keyboard, as the host window's: see there.
    std::function<bool(const std::string&, bool repeat)> onKey;
    std::function<void(const std::string&)> onKeyUp;
    /// Marks a button of the bar, as a held ok does.
    std::function<void()> enterButtons;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    struct Face;
    static const Face Faces[];
    /// Says in the place of the title how its buttons are reached.
    struct BarButtons : FocusedButtons {
        BarButtons(const ControlContext& context, ExtAppTools& bar)
            : FocusedButtons(context, &bar), bar_(bar) {}
        void Say(const std::string& text) override;
        ExtAppTools& bar_;
    };

    void ShowAtFront() override;
    void HideBar() override;
    void ShowText(const std::string& text) override;
    void MoveTo(bool top) override;
    bool AtTop() const override { return top_; }
    void EnterButtons() override;
    void TakeTouch(WindowHandle window, int x, int y) override;
    void MakeButtons();
    void HoldVolume(TouchButton& button, void (ToolBar::*change)());

    ControlContext context_;
    bool top_ = false;
    std::vector<std::unique_ptr<TouchButton>> buttons_;
    UCScrollText UCST_;
    BarButtons focus_;
    WheelTicks wheel_;
    void (ToolBar::*heldVolume_)() = nullptr;
    std::unique_ptr<Timer> volumeTimer_;
    ToolBar bar_;
};

} // namespace vk
