// Messages and questions.
#pragma once

#include "platform/dialogs.h"
#include "skin/controls/text_block.h"
#include "skin/dialogs/dialog_overlay.h"

#include <functional>
#include <string>

namespace vk {

/// What a message says, and its one or two buttons.
struct MessageTexts {
    std::string text, title;
    MessageKind kind = MessageKind::Plain;
    QString yes, no; ///< the accepting and the cancelling button; without the latter, one button
    bool markNo = false; ///< the cancelling one is marked at first
    /// Ends it by itself; the button, then the only one, gives up before.
    std::function<bool()> until = {};
};

/// A text that is too long for the screen is scrolled by Up and Down or by a finger. At its end
/// they lead from button to button, as everywhere.
class MessageOverlay : public DialogOverlay {
  public:
    MessageOverlay(QWidget* host, const DialogLook& look, const Clock& clock, MessageTexts texts);
    /// Pixels that the text is scrolled by.
    int Scrolled() const { return offset_; }

    void Idle() override;

  protected:
    void LayOut() override;
    void DrawContent(QPainter& painter) override;
    bool ContentKey(QKeyEvent& event) override;
    void PressContent(QPoint point) override;
    void DragContent(QPoint point) override;

  private:
    void ScrollTo(int offset);
    void DrawSign(QPainter& painter, const QRect& box) const;
    int HeadHeight() const;

    MessageTexts texts_;
    TextBlock block_;
    QRect area_; ///< where the text is drawn
    int offset_ = 0;
    int dragFrom_ = 0;
};

} // namespace vk
