#include "settings/external_app_page.h"

#include "core/text.h"
#include "hosting/command_line.h"
#include "platform/arguments.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr char Browse[] = "Browse to application executable...";
constexpr char AskedArguments[] = "Enter any command line arguments (optional)";
constexpr char NoPipe[] = "You cannot use the redirect pipe | in your command line";
constexpr char AskedName[] = "Please type a name for the application";
constexpr char AskedMaximize[] =
    "Do you wish to attemp to maximize this application when launched?";
constexpr char AskedForce[] =
    "If maximize fails, do you wish to FORCE the application to maximize? \n"
    "(WARNING - This can cause an unstable situation for the application)";
constexpr char Listed[] =
    "You already have an External Application pointing to that executable file.";

bool HasPipe(const std::string& text) {
    return text.find('|') != std::string::npos;
}

std::string CommandOf(const InstalledProgram& program) {
    return CommandLine{program.program, program.arguments}.Text();
}

} // namespace

Page ExternalAppPage::Describe() {
    Row shown{.text = [this] { return Shown(); },
              .ends = {{"<", [this] { Step(-1); }},
                       {">", [this] { Step(1); }},
                       {"Add", [this] { Add(); }},
                       {"Remove", [this] { Remove(); }}},
              .width = Row::Whole,
              .name = "lstExtApps"};
    return {.name = "settingsExternalApp",
            .tab = "Programs",
            .rows = {std::move(shown)},
            .heading = [] { return std::string("Programs that the menu and the browser start"); }};
}

std::string ExternalAppPage::Shown() const {
    const auto apps = list_.Read();
    if (apps.empty()) return "You have no applications configured";
    const std::size_t at = shown_ % apps.size();
    return std::to_string(at + 1) + "/" + std::to_string(apps.size()) + ": " + apps[at].name;
}

void ExternalAppPage::Step(int by) {
    const auto count = list_.Read().size();
    if (count > 0) shown_ = (shown_ % count + count + static_cast<std::size_t>(by)) % count;
}

// What the machine offers stands beside the files.
std::string ExternalAppPage::AskProgram() const {
    FileChoice choice{.caption = Browse,
                      .start = {},
                      .accepts = IsProgramFile,
                      .offersCaption = "Programs of this machine",
                      .offers = {}};
    for (const InstalledProgram& program : installed_())
        choice.offers.push_back({program.name, CommandOf(program)});
    return base_.dialogs.ChooseFile(choice);
}

// False when the user gives up.
bool ExternalAppPage::AskArguments(std::string& command, std::string offered) const {
    for (;;) {
        const auto typed = base_.dialogs.InputBox(AskedArguments, {}, offered);
        if (!typed) return false;
        if (!HasPipe(*typed)) {
            if (!Trim(*typed).empty()) command += " " + Trim(*typed);
            return true;
        }
        base_.dialogs.ShowMessage(NoPipe);
        if (base_.dialogs.Ending()) return false;
        offered = *typed;
    }
}

void ExternalAppPage::AskSize(ListedApp& app) const {
    app.maximize = base_.dialogs.AskYesNo(AskedMaximize);
    app.force = app.maximize && base_.dialogs.AskNoYes(AskedForce);
}

bool ExternalAppPage::AlreadyListed(const std::string& program) const {
    return std::ranges::any_of(list_.Read(), [&](const ListedApp& app) {
        return CommandLine::Parse(app.command).program == program;
    });
}

void ExternalAppPage::Add() {
    ListedApp app{.command = AskProgram(), .name = {}};
    if (app.command.empty()) return;
    const auto offers = installed_();
    const auto offer = std::ranges::find(offers, app.command, CommandOf);
    const std::string program = offer == offers.end() ? app.command : offer->program;
    if (HasPipe(program)) return base_.dialogs.ShowMessage(NoPipe);
    app.command = program;
    if (!AskArguments(app.command, offer == offers.end() ? "" : JoinArguments(offer->arguments)))
        return;
    const std::string offered = offer == offers.end() ? ToUtf8(FileNameOf(program)) : offer->name;
    const auto name = base_.dialogs.InputBox(AskedName, "Application Name", offered);
    if (!name) return;
    app.name = Trim(ReplaceAll(*name, "|", " "));
    if (app.name.empty()) app.name = offered;
    AskSize(app);
    if (base_.dialogs.Ending()) return;
    if (AlreadyListed(program)) return base_.dialogs.ShowMessage(ToUtf8(program) + "\n" + Listed);
    if (!list_.Add(app)) return base_.dialogs.ShowMessage("The list could not be written.");
    shown_ = list_.Read().size() - 1;
}

void ExternalAppPage::Remove() {
    const auto apps = list_.Read();
    if (apps.empty()) return;
    const std::size_t at = shown_ % apps.size();
    if (!base_.dialogs.AskNoYes("Remove " + apps[at].name + " from the list of programs?",
                                "Remove Application"))
        return;
    if (!list_.Remove(at, apps[at])) base_.dialogs.ShowMessage("The list could not be written.");
    shown_ = 0;
}

} // namespace vk
