// Messages, questions and choosers. They are modal: each call returns when the user has answered,
// and events run meanwhile.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vk {

/// How a message box is drawn.
enum class MessageKind { Plain, Warning, Critical };

/// All dialogs of the system: worked by arrows, Enter and Escape or by touch; tests answer them by
/// script. An empty title stands for the application's own.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    /// Shows a text and waits for OK.
    virtual void ShowMessage(const std::string& text, const std::string& title = {},
                             MessageKind kind = MessageKind::Plain) = 0;
    /// Yes or No; Escape means No.
    virtual bool AskYesNo(const std::string& text, const std::string& title = {}) = 0;
    /// The same with No marked: for what cannot be undone.
    virtual bool AskNoYes(const std::string& text, const std::string& title = {}) {
        return AskYesNo(text, title);
    }
    /// OK or Cancel; Escape means Cancel.
    virtual bool AskOkCancel(const std::string& text, const std::string& title = {}) = 0;
    /// One line of text; nothing when cancelled.
    virtual std::optional<std::string> InputBox(const std::string& text, const std::string& title,
                                                const std::string& value) = 0;
    /// One of a few rows by its place, `marked` at first; nothing when cancelled.
    virtual std::optional<int> Choose(const std::string& /*title*/,
                                      const std::vector<std::string>& /*rows*/, int /*marked*/) {
        return std::nullopt;
    }
    /// The folder that the user picked, starting at `start` (empty: the home folder); empty on
    /// cancel. `caption` stands above the folders.
    virtual std::string ChooseFolder(const std::string& caption, const std::string& start) = 0;
    /// True when the program ends: every dialog is cancelled at once, so that nothing may be asked
    /// until the answer fits.
    virtual bool Ending() const { return false; }
};

} // namespace vk
