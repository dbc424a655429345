// A touch area of a GPS skin: it is drawn in the skin's pictures.
#pragma once

#include "skin/controls/touch_button.h"

#include <QPixmap>

#include <functional>
#include <string>

namespace vk {

/// While it is held its region of the picture "on" lies over the picture "off", which is the
/// screen's to draw. Without pictures it is a plate with its name.
class AreaButton : public TouchButton {
  public:
    /// The picture "on", as large as the screen; null where there is none.
    using Pressed = std::function<QPixmap()>;
    AreaButton(const ControlContext& context, std::string name, Pressed pressed, QWidget* parent);

    const std::string& Name() const { return name_; }
    /// Whether the screen draws the picture "off" behind it.
    bool InPicture = true;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const std::string name_;
    Pressed pressedPicture_;
};

} // namespace vk
