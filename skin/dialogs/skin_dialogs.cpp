#include "skin/dialogs/skin_dialogs.h"

#include "platform/qt/virtual_keys.h"
#include "skin/dialogs/choice_overlay.h"
#include "skin/dialogs/folder_overlay.h"
#include "skin/dialogs/input_overlay.h"
#include "skin/dialogs/message_overlay.h"

#include <QDir>
#include <QFile>

#include <utility>

namespace vk {

namespace {

// An answer is an event and wakes the wait; this is for what comes without one.
constexpr int StepMs = 250;

std::string Home() {
    return QFile::encodeName(QDir::homePath()).toStdString();
}

// Taken away when the call that opened the dialog returns, unless the host was quicker.
struct Closer {
    QPointer<DialogOverlay> overlay;
    ~Closer() { delete overlay.data(); }
};

// The key that works a dialog as `code` works a screen; Key_unknown for none.
Qt::Key DialogKey(const InputCode& code) {
    static constexpr struct {
        Action action;
        Qt::Key key;
    } Keys[] = {
        {Action::ok, Qt::Key_Return},     {Action::quit, Qt::Key_Escape},
        {Action::up, Qt::Key_Up},         {Action::down, Qt::Key_Down},
        {Action::back, Qt::Key_Left},     {Action::forward, Qt::Key_Right},
        {Action::pageup, Qt::Key_PageUp}, {Action::pagedown, Qt::Key_PageDown},
    };
    const auto* row = FindRow(Keys, code);
    return row ? row->key : Qt::Key_unknown;
}

} // namespace

SkinDialogs::SkinDialogs(QWidget* host, const Volumes& volumes, const Clock& clock, Pump& pump,
                         Surfaces& surfaces)
    : host_(host), volumes_(volumes), clock_(clock), pump_(pump), surfaces_(surfaces) {}

SkinDialogs::~SkinDialogs() = default;

DialogLook SkinDialogs::Look() const {
    return DialogLookOf(skin_);
}

bool SkinDialogs::Run(const QPointer<DialogOverlay>& overlay) {
    if (closing_) return false;
    if (!host_->isVisible()) host_->show();
    const QPointer<QWidget> focus = host_->window()->focusWidget();
    surfaces_.DialogOpened();
    if (!open_.empty() && open_.back()) open_.back()->SetFront(false);
    open_.push_back(overlay);
    overlay->meaning = [this](const QKeyEvent& event) {
        return keys_ ? DialogKey(InputCode(VirtualKeyText(event), *keys_)) : Qt::Key_unknown;
    };
    ++changes_;
    overlay->SetFront(true);
    overlay->Open();
    pump_.Until({.what = "dialog",
                 .done =
                     [&] {
                         if (overlay) overlay->Idle();
                         return !overlay || overlay->Finished();
                     },
                 .stepMs = StepMs,
                 .byUser = true});
    open_.pop_back();
    ++changes_;
    if (overlay) {
        overlay->SetFront(false);
        overlay->hide();
    }
    if (!open_.empty() && open_.back()) open_.back()->SetFront(true);
    if (focus) focus->setFocus();
    surfaces_.DialogClosed();
    if (open_.empty() && onClosed) onClosed();
    return overlay && overlay->Accepted();
}

bool SkinDialogs::Ask(const std::string& text, const std::string& title, const char* yes,
                      const char* no, bool markNo) {
    const MessageTexts texts{
        text, title, MessageKind::Plain, QString::fromLatin1(yes), QString::fromLatin1(no), markNo};
    const Closer dialog{new MessageOverlay(host_, Look(), clock_, texts)};
    return Run(dialog.overlay);
}

void SkinDialogs::ShowMessage(const std::string& text, const std::string& title, MessageKind kind) {
    const Closer dialog{
        new MessageOverlay(host_, Look(), clock_, {text, title, kind, QStringLiteral("OK"), {}})};
    Run(dialog.overlay);
}

bool SkinDialogs::AskYesNo(const std::string& text, const std::string& title) {
    return Ask(text, title, "Yes", "No");
}

bool SkinDialogs::AskNoYes(const std::string& text, const std::string& title) {
    return Ask(text, title, "Yes", "No", true);
}

bool SkinDialogs::AskOkCancel(const std::string& text, const std::string& title) {
    return Ask(text, title, "OK", "Cancel");
}

std::optional<std::string> SkinDialogs::InputBox(const std::string& text, const std::string& title,
                                                 const std::string& value) {
    auto* input = new InputOverlay(host_, Look(), clock_, text, title, value);
    const Closer dialog{input};
    if (!Run(dialog.overlay)) return std::nullopt;
    return input->Value();
}

std::optional<int> SkinDialogs::Choose(const std::string& title,
                                       const std::vector<std::string>& rows, int marked) {
    auto* choice = new ChoiceOverlay(host_, Look(), clock_, {title, rows, marked});
    const Closer dialog{choice};
    if (!Run(dialog.overlay)) return std::nullopt;
    return choice->Chosen();
}

bool SkinDialogs::Await(const std::string& text, const std::string& title,
                        const std::string& giveUp, const std::function<bool()>& done) {
    const Closer dialog{new MessageOverlay(host_, Look(), clock_,
                                           {.text = text,
                                            .title = title,
                                            .yes = QString::fromStdString(giveUp),
                                            .no = {},
                                            .until = done})};
    return Run(dialog.overlay);
}

std::string SkinDialogs::ChooseFolder(const std::string& caption, const std::string& start) {
    FolderRows rows(volumes_, Home());
    rows.Enter(start.empty() ? Home() : start);
    return Choose(std::move(rows), caption);
}

std::string SkinDialogs::ChooseFile(const FileChoice& choice) {
    FolderRows rows(volumes_, Home(), choice);
    rows.Enter(choice.start);
    return Choose(std::move(rows), choice.caption);
}

std::string SkinDialogs::Choose(FolderRows rows, const std::string& caption) {
    auto* chooser = new FolderOverlay(host_, Look(), clock_, *this, std::move(rows), caption);
    const Closer dialog{chooser};
    return Run(dialog.overlay) ? chooser->Path() : std::string();
}

bool SkinDialogs::DoAction(const InputCode& code, bool repeat) {
    if (open_.empty()) return false;
    const Qt::Key key = DialogKey(code);
    if (key != Qt::Key_unknown && open_.back()) open_.back()->Press(key, repeat);
    return true;
}

void SkinDialogs::CloseAll() {
    closing_ = true;
    for (auto dialog = open_.rbegin(); dialog != open_.rend(); ++dialog)
        if (*dialog) (*dialog)->Finish(false);
}

} // namespace vk
