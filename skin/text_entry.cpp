#include "skin/text_entry.h"

#include <utility>

namespace vk {

namespace {

constexpr const char* Backspace = "8";

constexpr ActionRow<KeyboardModel> Rows[] = {
    {Action::forward, &KeyboardModel::MoveRight}, {Action::back, &KeyboardModel::MoveLeft},
    {Action::up, &KeyboardModel::StepUp},         {Action::down, &KeyboardModel::StepDown},
    {Action::ok, &KeyboardModel::ClickIt},        {Action::quit, &KeyboardModel::Leave}};

} // namespace

TextEntry::TextEntry(KeyboardModel& keyboard, TextEntryView& view)
    : keyboard_(keyboard), view_(view) {
    keyboard_.onOK = [this](const std::string& text) { Take(text); };
    keyboard_.onEscape = [this] { Cancel(); };
}

void TextEntry::Ask(TextQuestion question) {
    question_ = std::move(question);
    keyboard_.SetCaption(question_.caption);
    keyboard_.SetValue(question_.value);
    if (question_.startOnOK) keyboard_.MarkKey(KeyboardModel::OKKey);
}

void TextEntry::Open(TextQuestion question) {
    Ask(std::move(question));
    view_.SlideKeyboard(true);
    open_ = true;
}

void TextEntry::Close() {
    if (!std::exchange(open_, false)) return;
    question_ = {};
    view_.SlideKeyboard(false);
}

void TextEntry::Cancel() {
    if (open_) Answer(std::nullopt);
}

void TextEntry::Take(const std::string& text) {
    if (!open_) return;
    const std::string refused = question_.refuse ? question_.refuse(text) : std::string();
    if (!refused.empty()) return keyboard_.SetCaption(refused);
    const auto next = question_.next;
    if (const auto following = next ? next(text) : nullptr) return Ask(*following);
    Answer(text);
}

// The answer may ask the next question.
void TextEntry::Answer(const std::optional<std::string>& text) {
    const auto answer = std::move(question_.answer);
    Close();
    if (answer) answer(text);
}

bool TextEntry::Key(const InputCode& code) {
    if (!open_) return false;
    return RunAction(keyboard_, Rows, code) ||
           (code.FromKeyboard() && keyboard_.KeyDown(code.Text()));
}

bool TextEntry::Repeats(const InputCode& key) {
    const bool types = key.FromKeyboard() && !key.Movement() && KeyboardModel::Types(key.Text());
    return types ? key.Text() == Backspace : GoesOnWhileHeld(key);
}

} // namespace vk
