#include "settings/screen/remote_page.h"

#include <algorithm>

namespace vk {

namespace {

enum BoardPage { ActionsPage, ReceiverPage };
constexpr std::size_t ShownLines = 3; // of the list

std::string Milliseconds(int value) {
    return std::to_string(value) + " ms";
}

} // namespace

settingsRemote::settingsRemote(const LearningPage::Needs& page, RemoteLearning::Needs needs,
                               QWidget* parent)
    : LearningPage(page, parent), learning_(std::move(needs)) {
    learning_.onTimeOut = [this] { Refresh(); };
    AddActions();
    AddReceiver();
    AddSwitch({0, LastRow, 1, 1}, "ClearListButton", "Clear list",
              [this] { learning_.ClearList(); });
    AddSwitch({1, LastRow, 1, 1}, "btnIRresetIRbtns", "Reset buttons",
              [this] { learning_.ResetCodes(); });
    board().Add(
        {.cell = {2, LastRow, 1, 1},
         .text =
             [this] { return std::string(board().Page() == ActionsPage ? "Receiver" : "Buttons"); },
         .use =
             [this] { board().Show(board().Page() == ActionsPage ? ReceiverPage : ActionsPage); }});
    AddSwitch({3, LastRow, 1, 1}, "donebutton", "Done", [this] { doquit(); });
    board().Show(ActionsPage);
}

void settingsRemote::AddActions() {
    int number = 0;
    for (const ActionNames& names : Actions) {
        const Action action = names.action;
        board().Add(
            {.cell = ActionCell(number++),
             .text =
                 [this, names] {
                     const bool armed = learning_.ArmedAction() == names.action;
                     const std::string& code = learning_.Codes()[names.action];
                     return names.caption + (armed ? "\n..." : code.empty() ? "" : "\n" + code);
                 },
             .use = [this, action] { learning_.Arm(action); },
             .lit = [this, action] { return learning_.ArmedAction() == action; },
             .page = ActionsPage,
             .name = RemoteButton(action)});
    }
}

void settingsRemote::AddReceiver() {
    const Settings& s = learning_.Values();
    AddStepper(
        0, "comboIRtype", "Type", [this] { return learning_.Type(); }, &RemoteLearning::StepType);
    AddStepper(
        1, "comboIRportnum", "Port", [this] { return learning_.Port(); },
        &RemoteLearning::StepPort);
    AddStepper(
        2, "slRepeatDelay", "Repeat delay", [&s] { return Milliseconds(s.delay); },
        &RemoteLearning::StepDelay);
    AddStepper(
        3, "slRepeatSpeed", "Repeat speed", [&s] { return Milliseconds(s.speed); },
        &RemoteLearning::StepSpeed);
    AddSwitch(
        {0, 4, 1, 2}, "btnEnableIR", "Enable remote", [this] { learning_.Enable(true); },
        [&s] { return s.remoteStatus; });
    AddSwitch(
        {1, 4, 1, 2}, "btnDisableIR", "Disable remote", [this] { learning_.Enable(false); },
        [&s] { return !s.remoteStatus; });
    AddSwitch(
        {2, 4, 1, 2}, "chbxUseRepeatDelay", "Use repeat delay",
        [this, &s] { learning_.UseRepeatDelay(!s.UseDelay); }, [&s] { return s.UseDelay; });
    AddSwitch(
        {3, 4, 1, 2}, "bFixRepeat", "Fix repeat", [this] { learning_.FixRepeat(); },
        [this] { return learning_.Measuring(); });
}

void settingsRemote::AddStepper(int row, const char* name, const char* caption,
                                std::function<std::string()> value, Step step) {
    board().Add({.cell = {0, row, 2, 1},
                 .text = [caption, value = std::move(
                                       value)] { return std::string(caption) + ": " + value(); },
                 .page = ReceiverPage,
                 .name = name});
    for (const int by : {-1, 1})
        board().Add({.cell = {by < 0 ? 2 : 3, row, 1, 1},
                     .text = [by] { return std::string(by < 0 ? "-" : "+"); },
                     .use = [this, step, by] { (learning_.*step)(by); },
                     .page = ReceiverPage});
}

void settingsRemote::AddSwitch(QRect cell, const char* name, const char* caption,
                               std::function<void()> use, std::function<bool()> lit) {
    board().Add({.cell = cell,
                 .text = [caption] { return std::string(caption); },
                 .use = std::move(use),
                 .lit = std::move(lit),
                 .page = cell.top() == LastRow ? -1 : static_cast<int>(ReceiverPage),
                 .name = name});
}

bool settingsRemote::DoAction(const InputCode& code) {
    const bool used = !learning_.Received(code.Text(), code.Held()) || WorkPage(code);
    Refresh();
    return used;
}

std::string settingsRemote::Heading() const {
    const auto& list = learning_.List();
    std::string text = learning_.Obstacle();
    if (list.empty())
        return text.empty() ? "Choose a function, then press its button on the remote" : text;
    const std::size_t lines = text.empty() ? ShownLines : ShownLines - 1;
    if (!text.empty()) text += "\n";
    for (std::size_t i = list.size() - std::min(list.size(), lines); i < list.size(); ++i)
        text += (i + 1 == list.size() ? "> " : "") + list[i] + (i + 1 == list.size() ? "" : "\n");
    return text;
}

} // namespace vk
