#include "navigation/message_bar.h"

namespace vk {

void MessageBar::Say(const std::string& text, int seconds) {
    messageTicks_ = seconds;
    view_.ShowMessage(text);
}

// A tick may come right behind the message: it stays for at least its seconds.
void MessageBar::Tick() {
    if (messageTicks_ < 0) return;
    if (messageTicks_-- == 0) view_.ShowMessage("");
}

void MessageBar::Clear() {
    messageTicks_ = -1;
    view_.ShowMessage("");
}

} // namespace vk
