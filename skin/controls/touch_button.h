// A button for the finger.
#pragma once

#include "skin/controls/control_context.h"

#include <QWidget>

#include <functional>
#include <string>

namespace vk {

/// A picture of the skin in the middle of its touch rectangle, aspect kept; without the picture the
/// caption stands on a plate. It never takes the keyboard.
class TouchButton : public QWidget {
  public:
    TouchButton(const ControlContext& context, QWidget* parent);

    /// The picture shown, by its name in the skin's folder. While the skin in use lacks it, the
    /// one before stays.
    void SetPicture(const std::string& name);
    /// The picture while it is held; "" darkens the normal one.
    void SetPressedPicture(const std::string& name);
    /// Shown while there is no picture.
    void SetCaption(const std::string& caption);
    const std::string& Picture() const { return picture_; }
    /// Where in the button it is drawn; all of it is touched. An empty one: all.
    void SetFace(const QRect& face);
    QRect Face() const { return face_.isEmpty() ? rect() : face_; }

    /// What becomes of a press and a click while another command runs.
    Commands::When whileBusy = Commands::When::Drop;
    std::function<void()> onPress; ///< a command, as is `onClick`
    /// Wherever the finger is (`inside` or not), and when the button is hidden; after every press,
    /// whether or not it was run.
    std::function<void(bool inside)> onRelease;
    std::function<void()> onClick; ///< released inside

  protected:
    bool IsHeld() const { return pressed_; }
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void Release(bool inside);
    QPixmap FacePicture();
    void DrawPlate(QPainter& painter) const;

    ControlContext context_;
    std::string picture_, pressedPicture_, caption_;
    std::string before_; ///< the picture that stays while the skin lacks `picture_`
    QRect face_;
    bool pressed_ = false;
};

} // namespace vk
