// Asking for a line of text on the drawn keyboard.
#pragma once

#include "input/actions.h"
#include "skin/keyboard_model.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vk {

/// The keyboard as it comes and goes.
class TextEntryView {
  public:
    virtual ~TextEntryView() = default;
    /// Slides the keyboard over the screen or away, with events running; nothing when it is so
    /// already.
    virtual void SlideKeyboard(bool open) = 0;
};

/// What is asked. Texts are UTF-8.
struct TextQuestion {
    std::string caption; ///< the prompt; an empty one reads "Search For..."
    std::string value;   ///< the text to start from
    /// Looks at a text before it is taken: "" takes it, anything else is shown as the caption, and
    /// the keyboard stays. Empty: every text is taken.
    std::function<std::string(const std::string& text)> refuse = {};
    /// Looks at a text that is taken and gives what is asked next, on the same keyboard; nothing
    /// ends the asking. Empty: nothing follows.
    std::function<std::shared_ptr<TextQuestion>(const std::string& text)> next = {};
    /// Called when the keyboard has gone; without a text when the user has left it.
    std::function<void(const std::optional<std::string>& text)> answer;
    bool startOnOK = false; ///< the value is most often taken as it is: Enter does it
};

/// One question at a time. While it is open it has the keys first: arrows, ok and quit, as mapped,
/// work the drawn keys, or who has no others could not get out; those that type a letter type it,
/// whatever else they are mapped to.
class TextEntry {
  public:
    /// Both outlive this object.
    TextEntry(KeyboardModel& keyboard, TextEntryView& view);

    void Open(TextQuestion question);
    /// Takes the keyboard away without an answer: the screen is left or entered anew.
    void Close();
    bool IsOpen() const { return open_; }
    /// The same as the key ESC.
    void Cancel();
    KeyboardModel& Keyboard() { return keyboard_; }

    /// Acts on a key or a code of a remote; false when it means nothing here.
    bool Key(const InputCode& code);
    /// A tick of the wheel, positive for up: the mark moves.
    void Wheel(int delta) { delta > 0 ? keyboard_.StepUp() : keyboard_.StepDown(); }
    /// True for a key that goes on while it is held: of those that type the one that deletes.
    static bool Repeats(const InputCode& key);

  private:
    void Ask(TextQuestion question);
    void Take(const std::string& text);
    void Answer(const std::optional<std::string>& text);

    KeyboardModel& keyboard_;
    TextEntryView& view_;
    TextQuestion question_;
    bool open_ = false;
};

} // namespace vk
