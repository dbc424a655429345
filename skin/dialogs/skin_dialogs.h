// The dialogs of the system, drawn inside its window.
#pragma once

#include "core/pump.h"
#include "input/actions.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/volumes.h"
#include "skin/skin.h"
#include "skin/surfaces.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

namespace vk {

class DialogOverlay;
struct DialogLook;
class FolderRows;

/// Each dialog is a child of the host window that covers it, so no window manager is needed. While
/// one is open it has the keyboard, and the host gets no key and no touch. Its own keys and buttons
/// work whatever command it was asked in. Calls nest.
class SkinDialogs : public Dialogs {
  public:
    /// `host`, the ports and `surfaces`, which make way for a dialog, outlive this object.
    SkinDialogs(QWidget* host, const Volumes& volumes, const Clock& clock, Pump& pump,
                Surfaces& surfaces);
    ~SkinDialogs() override;

    /// From now on the dialogs wear the skin's colours (once it has been loaded).
    void SetSkin(const SkinStore* skin) { skin_ = skin; }
    /// From now on the keys of this map work the dialogs, too.
    void SetKeys(const KeyMap* keys) { keys_ = keys; }

    void ShowMessage(const std::string& text, const std::string& title = {},
                     MessageKind kind = MessageKind::Plain) override;
    bool AskYesNo(const std::string& text, const std::string& title = {}) override;
    bool AskNoYes(const std::string& text, const std::string& title = {}) override;
    bool AskOkCancel(const std::string& text, const std::string& title = {}) override;
    std::optional<std::string> InputBox(const std::string& text, const std::string& title,
                                        const std::string& value) override;
    std::optional<int> Choose(const std::string& title, const std::vector<std::string>& rows,
                              int marked) override;
    bool Await(const std::string& text, const std::string& title, const std::string& giveUp,
               const std::function<bool()>& done) override;
    std::string ChooseFolder(const std::string& caption, const std::string& start) override;
    std::string ChooseFile(const FileChoice& choice) override;

    /// True while a dialog is open.
    bool Active() const { return !open_.empty(); }
    bool Ending() const override { return closing_; }
    /// Works the dialog in front: arrows, ok, quit and paging, as by keys. False when no dialog is
    /// open; what means nothing to it is used up.
    bool DoAction(const InputCode& code, bool repeat = false);
    /// How often a dialog has come or gone.
    int Changes() const { return changes_; }
    /// Ends every open dialog with its cancelling answer, and any that is asked for later; for the
    /// end of the program.
    void CloseAll();

    /// Called when the last open dialog has closed: what lies under it is in front again.
    std::function<void()> onClosed;

  private:
    DialogLook Look() const;
    /// Runs the overlay until it is answered; true for any answer but the cancelling one. The
    /// overlay may be gone afterwards, when its host was taken away under it.
    bool Run(const QPointer<DialogOverlay>& overlay);
    std::string Choose(FolderRows rows, const std::string& caption);
    bool Ask(const std::string& text, const std::string& title, const char* yes, const char* no,
             bool markNo = false);

    QWidget* host_;
    const Volumes& volumes_;
    const Clock& clock_;
    Pump& pump_;
    Surfaces& surfaces_;
    const SkinStore* skin_ = nullptr;
    const KeyMap* keys_ = nullptr;
    int changes_ = 0;                           ///< how often a dialog has come or gone
    std::vector<QPointer<DialogOverlay>> open_; ///< the last is in front
    bool closing_ = false;
};

} // namespace vk
