// The drawn keyboard in a frame that slides over its screen.
#pragma once

#include "skin/controls/uc_osk.h"
#include "skin/text_entry.h"

#include <QWidget>

#include <functional>

namespace vk {

/// Hidden at first. What lies under it is its host's to hide.
class TextEntryPanel : public QWidget, public TextEntryView {
  public:
    /// `keyboard` outlives the panel.
    TextEntryPanel(const ControlContext& context, KeyboardModel& keyboard, QWidget* parent);

    /// Where it stands when it is there, in the parent, and the skin's look; to be called again
    /// after a change of either.
    void Place(const QRect& up);
    /// Comes up from below the parent's bottom edge, and goes back there.
    void SlideKeyboard(bool open) override;

    /// Called before it comes and after it has gone.
    std::function<void(bool open)> onSlide;

  private:
    ControlContext context_;
    UCOSK keyboard_;
    QRect up_;
};

} // namespace vk
