// One icon of the main menu.
#pragma once

#include "skin/controls/control_context.h"

#include <QWidget>

#include <functional>
#include <string>

namespace vk {

/// Shows its selected or unselected picture, stretched over the control. Without picture files it
/// is a plate with the icon's name, so that a skin without pictures stays usable.
class MenuIcon : public QWidget {
  public:
    MenuIcon(const ControlContext& context, const MenuIconData& icon, QWidget* parent);

    /// Takes its place by the skin's fractions of a screen of this size (pixels).
    void Place(QSize screen);
    void SetSelected(bool selected);
    bool IsSelected() const { return selected_; }

    std::string LoadedFunction; ///< action number as text, "" when the skin set none
    std::string SelectedPic, UnSelectedPic;
    int of_left = 0, of_right = 0, of_above = 0, of_below = 0; ///< neighbours, 0 for none

    std::function<void()> onClick; ///< a command: dropped while another one runs

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent*) override { pressed_ = false; }

  private:
    void DrawPlate(QPainter& painter) const;

    ControlContext context_;
    MenuIconData data_;
    bool selected_ = false;
    bool pressed_ = false;
};

} // namespace vk
