#include "settings/system_page.h"

#include "core/reset.h"
#include "core/version.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr std::int32_t Sizes = CustomFrame + 1;

// On a frame beyond the display's edge the way back would be out of reach.
bool Fits(std::int32_t size, const FrameSize& display) {
    if (size <= 0 || size >= CustomFrame) return true;
    const FrameSize& frame = PanelFrames[static_cast<std::size_t>(size - 1)];
    return frame.width <= display.width && frame.height <= display.height;
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

std::string SystemPage::SizeText() const {
    const std::int32_t size = n_.base.settings.values.AppSize;
    if (size == CustomFrame) return "custom";
    if (size <= 0 || size > CustomFrame) return "the whole screen";
    const FrameSize& frame = PanelFrames[static_cast<std::size_t>(size - 1)];
    return std::to_string(frame.width) + " x " + std::to_string(frame.height);
}

void SystemPage::StepSize(int step) {
    SettingsStore& store = n_.base.settings;
    const FrameSize display = n_.display();
    std::int32_t size = std::clamp(store.values.AppSize, 0, CustomFrame);
    do
        size = (size + step + Sizes) % Sizes;
    while (!Fits(size, display));
    store.Set(setting::AppSize, size);
    const bool unset = store.values.AppSizeCustomX == 0 || store.values.AppSizeCustomY == 0;
    if (size == CustomFrame && unset)
        store.Write(
            {{setting::AppSizeCustomX, display.width}, {setting::AppSizeCustomY, display.height}});
    n_.resize();
}

Row SystemPage::SideRow(const Setting<std::int32_t>& setting, std::int32_t FrameSize::*side) {
    SettingsStore& store = n_.base.settings;
    Row row = StepperRow(store, setting);
    for (const int step : {-1, 1})
        row.ends[step < 0 ? 0 : 1].use = [this, &store, &setting, side, step] {
            const double wanted = Stepped(store.values.*setting.kept, step, setting.limits);
            store.Set(setting, std::min(static_cast<std::int32_t>(wanted), n_.display().*side));
            n_.resize();
        };
    row.usable = [&store] { return store.values.AppSize == CustomFrame; };
    return row;
}

std::vector<Row> SystemPage::SizeRows() {
    Row size = StepRow([this] { return setting::AppSize.caption + std::string(": ") + SizeText(); },
                       [this](int step) { StepSize(step); }, "<", ">");
    size.name = setting::AppSize.name;
    return {Changes(std::move(size), setting::AppSize), DriveRow(),
            SideRow(setting::AppSizeCustomX, &FrameSize::width),
            SideRow(setting::AppSizeCustomY, &FrameSize::height)};
}

Row SystemPage::DesktopRow(const char* caption, void (SystemPage::*click)(),
                           const std::function<std::optional<bool>()>& on, const char* name) {
    return {.text =
                [caption, on] {
                    const auto state = on();
                    return state ? OnOff(caption, *state) : caption;
                },
            .use = [this, click] { (this->*click)(); },
            .lit = [on] { return on().value_or(false); },
            .name = name};
}

Page SystemPage::Describe() {
    std::vector<Row> rows = SizeRows();
    rows.push_back(DesktopRow(
        "Start when the user logs in", &SystemPage::chkbxMakeVKdefaultShell_Click,
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
