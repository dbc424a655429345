// Messages, questions and choosers. They are modal: each call returns when the user has answered,
// and events run meanwhile.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// What `Dialogs::ChooseFile` lets the user choose from.
struct FileChoice {
    /// Something that is offered beside the files.
    struct Offer {
        std::string caption;
        std::string value; ///< the answer when it is chosen
    };
    std::string caption; ///< above the files
    std::string start;   ///< the first folder; empty: the list of starting places
    std::function<bool(const std::string& path)> accepts = {}; ///< the files shown; empty: all
    std::string offersCaption = {};                            ///< of the place that holds them
    std::vector<Offer> offers = {};
};

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
    /// Shows a text until `done`, asked a few times a second, says so; false when the user gave up
    /// by the button, whose caption is `giveUp`.
    virtual bool Await(const std::string& /*text*/, const std::string& /*title*/,
                       const std::string& /*giveUp*/, const std::function<bool()>& /*done*/) {
        return false;
    }
    /// The folder that the user picked, starting at `start` (empty: the home folder); empty on
    /// cancel. `caption` stands above the folders.
    virtual std::string ChooseFolder(const std::string& caption, const std::string& start) = 0;
    /// The path of the file that the user picked, or the value of an offer; empty on cancel.
    virtual std::string ChooseFile(const FileChoice& /*choice*/) { return {}; }
    /// True when the program ends: every dialog is cancelled at once, so that nothing may be asked
    /// until the answer fits.
    virtual bool Ending() const { return false; }
};

} // namespace vk
