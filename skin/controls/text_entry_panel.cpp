#include "skin/controls/text_entry_panel.h"

namespace vk {

namespace {

constexpr int SlideSteps = 6;
constexpr int SlideStepMs = 10;

} // namespace

TextEntryPanel::TextEntryPanel(const ControlContext& context, KeyboardModel& keyboard,
                               QWidget* parent)
    : QWidget(parent), context_(context), keyboard_(context, keyboard, this) {
    keyboard_.setObjectName(QStringLiteral("UCKeyboard"));
    hide();
}

void TextEntryPanel::Place(const QRect& up) {
    up_ = up;
    setGeometry(up);
    keyboard_.setGeometry(rect());
    keyboard_.UseSkin();
}

// It takes no touch on its way.
void TextEntryPanel::SlideKeyboard(bool open) {
    if (open == !isHidden()) return; // whether or not its screen is in front
    raise();
    if (open && onSlide) onSlide(true);
    setEnabled(false);
    const int below = up_.top() + up_.height();
    for (int step = 1; step <= SlideSteps; ++step) {
        const int out = open ? step : SlideSteps - step;
        move(up_.x(), below - up_.height() * out / SlideSteps);
        show();
        context_.pump.Pause("keyboard", SlideStepMs);
    }
    setVisible(open);
    setEnabled(true);
    if (!open && onSlide) onSlide(false);
}

} // namespace vk
