#include "settings/learning_pages.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr std::size_t ShownLines = 3; // of the list of codes

Row ActionButton(const ActionNames& names, std::function<std::string()> state,
                 std::function<void()> arm, std::function<bool()> armed) {
    return {.text =
                [names, state = std::move(state), armed] {
                    const std::string value = armed() ? "..." : state();
                    return names.caption + (value.empty() ? "" : "\n" + value);
                },
            .use = std::move(arm),
            .lit = armed,
            .width = Row::Quarter};
}

// Why no code can be learnt, and the last codes.
std::string RemoteHeading(const RemoteLearning& learning) {
    const auto& list = learning.List();
    std::string text = learning.Obstacle();
    if (list.empty())
        return text.empty() ? "Choose a function, then press its button on the remote" : text;
    const std::size_t lines = text.empty() ? ShownLines : ShownLines - 1;
    if (!text.empty()) text += "\n";
    for (std::size_t i = list.size() - std::min(list.size(), lines); i < list.size(); ++i)
        text += (i + 1 == list.size() ? "> " : "") + list[i] + (i + 1 == list.size() ? "" : "\n");
    return text;
}

std::vector<Row> RemoteButtons(RemoteLearning& learning) {
    std::vector<Row> rows;
    for (const ActionNames& names : Actions) {
        const Action action = names.action;
        rows.push_back(ActionButton(
            names, [&learning, action] { return learning.Codes()[action]; },
            [&learning, action] { learning.Arm(action); },
            [&learning, action] { return learning.ArmedAction() == action; }));
        rows.back().name = RemoteButton(action);
    }
    rows.front().sheet = "Buttons";
    return rows;
}

void AddReceiver(std::vector<Row>& rows, SettingsStore& store, RemoteLearning& learning) {
    const Settings& s = learning.Values();
    const std::size_t first = rows.size();
    const auto add = [&](Row row, const char* name) {
        row.name = name;
        rows.push_back(std::move(row));
    };
    add(Changes(StepRow([&learning] { return "Type: " + learning.Type(); },
                        [&learning](int step) { learning.StepType(step); }),
                setting::remoteType),
        "comboIRtype");
    add({.text =
             [&learning] {
                 return std::string(learning.Chosen() ? "In use" : "Use this receiver");
             },
         .use = [&learning] { learning.Choose(); },
         .lit = [&learning] { return learning.Chosen(); }},
        "btnUseReceiver");
    Row port = StepRow([&learning] { return "Port: " + learning.Port(); },
                       [&learning](int step) { learning.StepPort(step); });
    port.width = Row::Whole;
    add(Changes(std::move(port), setting::comport), "comboIRportnum");
    add(StepperRow(store, setting::delay), "slRepeatDelay");
    add(StepperRow(store, setting::speed), "slRepeatSpeed");
    rows[first].sheet = "Receiver";
    rows.push_back(Changes(SwitchRow(
                               "Enable remote", [&learning] { learning.Enable(true); },
                               [&s] { return s.remoteStatus; }, "btnEnableIR"),
                           setting::remoteStatus));
    rows.push_back(SwitchRow(
        "Disable remote", [&learning] { learning.Enable(false); }, [&s] { return !s.remoteStatus; },
        "btnDisableIR"));
    rows.push_back(
        Changes(SwitchRow(
                    "Use repeat delay", [&learning, &s] { learning.UseRepeatDelay(!s.UseDelay); },
                    [&s] { return s.UseDelay; }, "chbxUseRepeatDelay"),
                setting::UseDelay));
    rows.push_back(SwitchRow(
        "Fix repeat", [&learning] { learning.FixRepeat(); },
        [&learning] { return learning.Measuring(); }, "bFixRepeat"));
}

} // namespace

Page KeyboardPage(KeyboardLearning& learning, std::function<void()> done) {
    std::vector<Row> rows;
    for (const ActionNames& names : Actions) {
        const Action action = names.action;
        rows.push_back(ActionButton(
            names, [&learning, action] { return KeyName(learning.Keys()[action]); },
            [&learning, action] { learning.Arm(action); },
            [&learning, action] { return learning.ArmedAction() == action; }));
    }
    Row status = ProgressRow([&learning] { return learning.Status(); });
    status.width = Row::Whole - Row::Third;
    const auto takesKey = [&learning](const std::string& code) {
        if (!learning.Armed()) return false;
        // Alt in front of a code is only the modifier.
        learning.KeyDown(code.starts_with("%") ? code.substr(1) : code);
        return true;
    };
    return {.name = "settingsKeyboard",
            .tab = "Keyboard",
            .rows = std::move(rows),
            .footer = {status, ButtonRow("Done", std::move(done), Row::Third)},
            .heading =
                [&learning] {
                    const std::string& message = learning.Message();
                    return message.empty() ? "Choose a function to give it another key" : message;
                },
            .enter = [&learning] { learning.Enter(); },
            .leave = [&learning] { learning.Leave(); },
            .takesKey = takesKey,
            .repeats = false}; // the key that armed a function may still be held
}

Page RemotePage(SettingsStore& store, Dialogs& dialogs, RemoteLearning& learning,
                std::function<void()> done) {
    std::vector<Row> rows = RemoteButtons(learning);
    AddReceiver(rows, store, learning);
    rows.push_back(TextRow(store, dialogs, setting::lircsocket));
    return {.name = "settingsRemote",
            .tab = "Remote",
            .rows = std::move(rows),
            .footer = {ButtonRow(
                           "Clear list", [&learning] { learning.ClearList(); }, Row::Third,
                           "ClearListButton"),
                       ButtonRow(
                           "Reset buttons", [&learning] { learning.ResetCodes(); }, Row::Third,
                           "btnIRresetIRbtns"),
                       ButtonRow("Done", std::move(done), Row::Third, "donebutton")},
            .heading = [&learning] { return RemoteHeading(learning); },
            .enter = [&learning] { learning.Enter(); },
            .leave = [&learning] { learning.Leave(); },
            .takesCode =
                [&learning](const InputCode& code) {
                    return !learning.Received(code.Text(), code.Held());
                }};
}

} // namespace vk
