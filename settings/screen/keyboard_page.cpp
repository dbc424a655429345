#include "settings/screen/keyboard_page.h"

namespace vk {

settingsKeyboard::settingsKeyboard(const LearningPage::Needs& page, KeyboardLearning::Needs needs,
                                   QWidget* parent)
    : LearningPage(page, parent), learning_(needs) {
    learning_.onTimeOut = [this] { Refresh(); };
    int number = 0;
    for (const ActionNames& names : Actions) {
        const Action action = names.action;
        board().Add({.cell = ActionCell(number++),
                     .text =
                         [this, names] {
                             return std::string(names.caption) + "\n" +
                                    (learning_.ArmedAction() == names.action
                                         ? "..."
                                         : KeyName(learning_.Keys()[names.action]));
                         },
                     .use = [this, action] { learning_.Arm(action); },
                     .lit = [this, action] { return learning_.ArmedAction() == action; }});
    }
    board().Add(
        {.cell = {0, LastRow, Columns - 1, 1}, .text = [this] { return learning_.Status(); }});
    board().Add({.cell = {Columns - 1, LastRow, 1, 1},
                 .text = [] { return std::string("Done"); },
                 .use = [this] { doquit(); }});
}

bool settingsKeyboard::Form_KeyDown(const std::string& code) {
    if (!learning_.Armed()) return DoAction(InputCode(code, keys()));
    // Alt in front of a code is only the modifier.
    learning_.KeyDown(code.starts_with("%") ? code.substr(1) : code);
    Refresh();
    return true;
}

bool settingsKeyboard::DoAction(const InputCode& code) {
    return WorkPage(code);
}

std::string settingsKeyboard::Heading() const {
    const std::string& message = learning_.Message();
    return message.empty() ? "Choose a function to give it another key" : message;
}

} // namespace vk
