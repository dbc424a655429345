#include "settings/system_page.h"

#include "core/reset.h"
#include "core/version.h"

#include <array>
#include <utility>

namespace vk {

namespace {

constexpr std::int32_t Custom = 6; // of AppSize
constexpr std::array SizeNames = {"the whole screen", "640 x 480",  "720 x 400", "800 x 400",
                                  "800 x 600",        "1024 x 768", "custom"};
constexpr char NextStart[] = "\ncounts at the next start";

Row SideRow(SettingsStore& store, const Setting<std::int32_t>& setting) {
    Row row = StepperRow(store, setting);
    row.usable = [&store] { return store.values.AppSize == Custom; };
    return row;
}

} // namespace

// The desktop may still have an answer under way.
SystemPage::~SystemPage() {
    if (asking_) n_.desktop.AskAutoPlay({});
}

void SystemPage::btnLaunchExplorer_Click() {
    Trap(n_.base.report, "An error occured in settings.btnLaunchExplorer_Click ", [&] {
        if (n_.catalogue.Busy())
            told_ = "Please wait for the database to finish.";
        else if (!n_.desktop.OpenExplorer())
            told_ = "There is no program here that shows the user's files";
    });
}

void SystemPage::chkbxMakeVKdefaultShell_Click() {
    Trap(n_.base.report, "An error occured in settings.chkbxMakeVKdefaultShell_Click ", [&] {
        const bool on = !n_.desktop.IsShell();
        told_ = n_.desktop.SetShell(on)
                    ? (on ? "Velkorandum starts at the next login" : "The desktop starts as before")
                    : "Could not be written";
    });
}

void SystemPage::chkDisableAutoPlay_Click() {
    Trap(n_.base.report, "An error occured in settings.chkDisableAutoPlay_Click ", [&] {
        if (!autoPlay_)
            told_ = asking_ ? "The desktop has not answered yet"
                            : "Nothing here opens removable media by itself";
        else
            SetAutoPlay(*autoPlay_ != Desktop::NothingOpens);
    });
}

void SystemPage::SetAutoPlay(bool quiet) {
    SettingsStore& settings = n_.base.settings;
    const std::int32_t kept = settings.Get(setting::AutoPlayByte);
    const std::int32_t value = quiet        ? Desktop::NothingOpens
                               : kept == -1 ? Desktop::UsualOpens
                                            : kept;
    if (quiet) settings.Set(setting::AutoPlayByte, *autoPlay_);
    if (value != *autoPlay_ && !n_.desktop.SetAutoPlay(value)) {
        told_ = "Could not be written";
        return;
    }
    autoPlay_ = value;
    if (n_.desktop.AutoPlayWaitsForStart() && n_.base.state.Setup)
        n_.base.dialogs.ShowMessage("You must reboot your system for this setting to take effect",
                                    "Global Settings Change");
}

// The files go at the next start: until then the system would write them anew.
void SystemPage::Reset() {
    if (!n_.base.dialogs.AskNoYes(RevertQuestion, "Revert?")) return;
    if (!AskForReset(n_.base.settings))
        told_ = "Could not be written";
    else
        n_.exitApplication();
}

void SystemPage::AskAutoPlay() {
    asking_ = true;
    n_.desktop.AskAutoPlay([this](std::optional<std::int32_t> value) {
        asking_ = false;
        autoPlay_ = value;
        n_.changed();
    });
}

Row SystemPage::DriveRow() {
    SettingsStore& store = n_.base.settings;
    Row row = ChoiceRow(store, setting::CDDriveLetter, [&state = n_.base.state] {
        std::vector<Option> drives = {{"NONE", "NONE"}};
        for (const std::string& drive : state.CDDrives)
            drives.emplace_back(drive, drive);
        return drives;
    });
    row.name = "cboCDDrive";
    return row;
}

std::vector<Row> SystemPage::SizeRows() {
    SettingsStore& store = n_.base.settings;
    const auto size = [&store] {
        const auto at = static_cast<std::size_t>(store.values.AppSize);
        return at < SizeNames.size() ? at : 0;
    };
    Row sizes = StepRow(
        [&store, size] {
            return setting::AppSize.caption + std::string(": ") + SizeNames[size()] + NextStart;
        },
        [&store, size](int step) {
            const auto count = static_cast<int>(SizeNames.size());
            store.Set(setting::AppSize, (static_cast<int>(size()) + step + count) % count);
        },
        "<", ">");
    sizes.name = setting::AppSize.name;
    return {Changes(std::move(sizes), setting::AppSize), DriveRow(),
            SideRow(store, setting::AppSizeCustomX), SideRow(store, setting::AppSizeCustomY)};
}

Row SystemPage::DesktopRow(const char* caption, void (SystemPage::*click)(),
                           std::function<std::optional<bool>()> on, const char* name) {
    return {.text =
                [caption, on] {
                    const auto state = on();
                    return std::string(caption) + (!state ? "" : *state ? "\non" : "\noff");
                },
            .use = [this, click] { (this->*click)(); },
            .lit = [on] { return on().value_or(false); },
            .name = name};
}

Page SystemPage::Describe() {
    std::vector<Row> rows = SizeRows();
    rows.push_back(DesktopRow(
        "Start at login, in place of the desktop", &SystemPage::chkbxMakeVKdefaultShell_Click,
        [this] { return std::optional(n_.desktop.IsShell()); }, "chkbxMakeVKdefaultShell"));
    rows.push_back(DesktopRow(
        "Disable AutoPlay of removable media", &SystemPage::chkDisableAutoPlay_Click,
        [this] {
            return autoPlay_ ? std::optional(*autoPlay_ == Desktop::NothingOpens) : std::nullopt;
        },
        "chkDisableAutoPlay"));
    rows.push_back(ButtonRow(
        "Launch Explorer", [this] { btnLaunchExplorer_Click(); }, Row::Half, "btnLaunchExplorer"));
    rows.push_back(ButtonRow(
        "Reset all settings", [this] { Reset(); }, Row::Half, "btnReset"));
    return {
        .name = "settingsSystem",
        .tab = "System",
        .rows = std::move(rows),
        .heading = [this] { return told_.empty() ? std::string("Velkorandum ") + Version : told_; },
        .enter = [this] { AskAutoPlay(); },
        .leave = [this] { told_.clear(); }};
}

} // namespace vk
