// The drawn keyboard, for a finger or for arrow keys alone.
#pragma once

#include "skin/controls/control_context.h"
#include "skin/keyboard_model.h"

#include <QFont>
#include <QWidget>

#include <memory>
#include <string>

class QPainter;

namespace vk {

/// How a `UCOSK` looks. Sizes are points at 96 dots an inch, before the skin's font scale; 0 makes
/// a font as large as its key or line wants it.
struct OSKProperties {
    bool Enabled = true; ///< touches are taken
    std::string SearchTextFontName = "Verdana";
    std::int16_t SearchTextFontSize = 0;
    bool SearchTextFontbold = false;
    bool SearchTextFontItalic = false;
    std::string KeyFontName = "Verdana";
    std::int16_t KeyFontSize = 0;
    bool KeyFontBold = false;
    bool KeyFontItalic = false;
    SkinColour KeyFontColor;
    SkinColour SelectionBoxClr; ///< ground of the marked key; 0 counts as white
    SkinColour BackColor;
    SkinColour SearchFontColor; ///< of the typed text
};

/// Draws a `KeyboardModel` and turns touches into its keys: a key is pressed where the finger lets
/// go of it, as a command of its own. It takes `onKeyShown` and `onChange` of the model for itself,
/// and never the keyboard.
class UCOSK : public QWidget {
  public:
    static constexpr int ScaleMode = 3; ///< the unit of the four below: pixels

    /// `model` outlives the control.
    UCOSK(const ControlContext& context, KeyboardModel& model, QWidget* parent);
    ~UCOSK() override;

    /// Takes colours and font names of the skin in use. To be called after a change of skin.
    void UseSkin();
    /// Lays out all keys, as large as the control's size allows and in its middle; done by itself
    /// when the control changes its size.
    void UCResize();

    const OSKProperties& Properties() const { return properties_; }
    /// Draws all keys anew with these.
    void SetProperties(const OSKProperties& properties);

    /// The part of the control that the keyboard fills.
    int ScaleLeft() const { return (width() - ScaleWidth()) / 2; }
    int ScaleTop() const { return 0; }
    int ScaleWidth() const { return KeyboardModel::FittingWidth(width(), height()); }
    int ScaleHeight() const { return height(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    int KeyAt(QPoint point) const;
    void Blink(int index);
    void EndBlink();
    QFont KeyFont() const;
    QFont TextFont() const;
    void DrawCaption(QPainter& painter) const;
    void DrawText(QPainter& painter) const;
    void DrawKey(QPainter& painter, int index) const;

    ControlContext context_;
    KeyboardModel& model_;
    OSKProperties properties_;
    std::unique_ptr<Timer> blink_;
    int held_ = -1; ///< key under the finger
    int lit_ = -1;  ///< key that was pressed just now
};

} // namespace vk
