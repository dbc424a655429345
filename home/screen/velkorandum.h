// The home screen: a grid of skinned icons with a clock bar.
#pragma once

#include "home/main_menu.h"
#include "skin/controls/control_context.h"
#include "skin/controls/focused_buttons.h"
#include "skin/controls/menu_icon.h"
#include "skin/controls/shaded_label.h"
#include "skin/controls/touch_button.h"
#include "skin/controls/wheel_ticks.h"

#include <QLabel>
#include <QPixmap>
#include <QWidget>

#include <memory>
#include <vector>

namespace vk {

class velkorandum : public QWidget, public MenuView {
  public:
    velkorandum(const ControlContext& context, const MainMenu::Needs& needs, QWidget* parent);
    ~velkorandum() override;

    void DoLayout();
    void Hide() { hide(); }

    /// Called once, after the menu has been painted for the first time with its icons.
    std::function<void()> onFirstPaint;

    /// The logic behind the picture.
    MainMenu& menu() { return menu_; }
    /// Those of its bar.
    FocusedButtons& Buttons() { return focus_; }

    void ShowAtFront() override;
    void ShowIcons() override;
    void DrawIcon(int index, bool selected) override;
    void ShowFrame(bool shown) override;
    void SetClockBar(const std::string& text) override;
    void ShowBanner(const std::string& text) override;
    void ShowLoading(const std::string& text) override;
    void RefreshClockColours() override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QSize ScreenSize() const;
    void LayOutBar();
    int TouchedAbove(int barTop) const;
    void ShowBarButtons(bool shown);
    void LayOutBanner();
    std::unique_ptr<TouchButton> MakeButton(const char* picture, const char* caption,
                                            std::function<void()> onClick);

    ControlContext context_;
    MainMenu menu_;
    QWidget Frame1;
    ShadedLabel ClockBar;
    ShadedLabel Label6; ///< the banner's text, on its plate
    std::unique_ptr<TouchButton> Image1, Image2, Image3;
    std::vector<std::unique_ptr<MenuIcon>> icons_;
    QPixmap background_;
    QLabel imgLoading;
    int iconGeneration_ = -1;
    FocusedButtons focus_;
    WheelTicks wheel_;
    bool canDim_ = false;
};

} // namespace vk
