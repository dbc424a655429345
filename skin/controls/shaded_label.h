// A text on a screen.
#pragma once

#include "core/commands.h"
#include "skin/skin.h"

#include <QWidget>

#include <functional>
#include <string>

class QPainter;

namespace vk {

/// Long texts are cut at their end with an ellipsis, or wrapped. Without a ground the parent shows
/// through.
class ShadedLabel : public QWidget {
  public:
    explicit ShadedLabel(QWidget* parent);

    /// `skin` gives the font's scale.
    void SetLook(const SkinFont& font, SkinColour colour, const SkinData& skin);
    void SetText(const std::string& text);
    const std::string& Text() const { return text_; }
    void SetColour(const QColor& colour);
    /// A shadow of the text; an invalid colour takes it away.
    void SetShadow(const QColor& colour);
    /// Fills the label; `radius` in pixels rounds its corners to a plate. An invalid colour clears
    /// it.
    void SetGround(const QColor& colour, int radius = 0);
    void SetAlignment(Qt::Alignment alignment);
    void SetWrap(bool wrap);
    /// Makes the font as small as the label's width and height need, to `smallest` of its size; of
    /// lines that are not wrapped each by itself.
    void SetShrink(double smallest);
    /// No text is larger than that, pixels, so that labels side by side look alike; 0: as large as
    /// it fits.
    void SetLargest(int pixels);
    /// The size of a wrapped text without such a limit, pixels.
    int FittingSize() const;
    /// Where in the label it is drawn, ground and text; all of it is touched. An empty one: all.
    void SetFace(const QRect& face);
    QRect Face() const { return face_.isEmpty() ? rect() : face_; }
    /// What the text keeps free on both sides of the face, pixels.
    void SetMargin(int margin);
    /// Where a long text is cut: in its middle, a path keeps the name of its file.
    void SetElide(Qt::TextElideMode mode);

    /// A touch runs `click` as a command: dropped while another one runs. Without one touches go to
    /// the parent. `commands` outlives the label.
    void OnClick(Commands& commands, std::function<void()> click);
    bool TakesTouches() const { return static_cast<bool>(click_); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent*) override { pressed_ = false; }

  private:
    /// A wrapped text as it is drawn.
    struct Wrapped {
        QFont font;
        int flags; ///< of drawText
    };
    Wrapped Wrap(const QFont& largest) const;
    QRect TextBox() const;
    /// The text's shadow, where it has one, and the text.
    void DrawTwice(QPainter& painter, int pixelSize,
                   const std::function<void(QPoint offset)>& draw) const;
    void DrawWrapped(QPainter& painter, const QRect& box) const;
    void DrawLines(QPainter& painter, const QRect& box) const;

    std::function<void()> click_;
    std::string text_;
    QFont font_;
    QColor colour_ = Qt::white;
    QColor shadow_, ground_;
    Qt::Alignment alignment_ = Qt::AlignCenter;
    Qt::TextElideMode elide_ = Qt::ElideRight;
    QRect face_;
    double smallest_ = 1;
    int radius_ = 0, margin_ = 0, largest_ = 0;
    bool wrap_ = false;
    bool pressed_ = false;
};

} // namespace vk
