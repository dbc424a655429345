// The scrolling title line.
#pragma once

#include "skin/controls/control_context.h"

#include <QPixmap>
#include <QWidget>

#include <memory>
#include <string>

namespace vk {

/// One line of text with a drop shadow. A text that fits stands still in the middle; a longer one
/// runs to the left without end, a pixel each 15 ms. With the setting UseAnimation off it is cut
/// with an ellipsis instead.
class UCScrollText : public QWidget {
  public:
    UCScrollText(const ControlContext& context, QWidget* parent);
    ~UCScrollText() override;

    /// Sets the text and its look. Colours as the skin has them.
    void ScrollText(const std::string& text, SkinColour colour, QColor shadow,
                    const SkinFont& font);
    /// The same in the look set last.
    void ScrollText(const std::string& text);
    const std::string& Text() const { return text_; }
    /// Width of a text in a font of the skin, pixels.
    int TestFitGetX(const std::string& text, const SkinFont& font) const;
    int GetLabelSizeX() const { return textWidth_; }
    int GetLabelSizeY() const { return textHeight_; }
    /// The skin's background whose part behind the control is drawn under the text; without one
    /// the parent shows through. To be called after setGeometry.
    void SetBackground(const std::string& name);
    /// Draws the line anew, after a change of size as well.
    void ReBlit();
    /// Pixels that the text has run to the left, 0 or below.
    int Position() const { return position_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QFont FittingFont() const;
    void Render();
    void Timer1_Timer();
    void StartOrStop();
    bool Runs() const;
    int Period() const;

    ControlContext context_;
    std::unique_ptr<Timer> timer1_;
    std::string text_;
    QColor colour_ = Qt::white;
    QColor shadow_ = Qt::black;
    QFont font_;
    QPixmap line_;       ///< the text, rendered once
    PicturePart ground_; ///< the clean background
    int textWidth_ = 0;
    int textHeight_ = 0;
    int position_ = 0;
};

} // namespace vk
