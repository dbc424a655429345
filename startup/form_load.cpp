// The start in its order.
#include "core/frame_size.h"
#include "core/reset.h"
#include "core/settings_files.h"
#include "core/text.h"
#include "core/time_of_day.h"
#include "core/version.h"
#include "library/catalogue_server.h"
#include "platform/file_state.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "startup/astart.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

// Written at every start, whatever the user changed: the player stays out of sight and moves
// through the list by itself.
constexpr std::pair<const char*, const char*> ForcedWinampKeys[] = {
    {"minimized", "1"}, {"eq_open", "0"}, {"mw_open", "0"},
    {"pe_open", "0"},   {"mb_open", "0"}, {"visplugin_autoexec", "0"},
    {"splash", "0"},    {"disvis", "1"},  {"aot", "0"},
    {"pladv", "1"},     {"repeat", "1"}};

// Pixels of a side: on less nothing can be read or touched, and no picture is made for more.
bool HoldsTheInterface(std::int32_t side) {
    return side >= 200 && side <= 8192;
}

} // namespace

astart::astart(Needs needs) : n_(std::move(needs)), base_(n_.base) {
    timer1_ = base_.clock.MakeTimer([this] { Timer1_Timer(); });
}

astart::~astart() = default;

template<class Steps> bool astart::Run(const Steps& steps) {
    return std::ranges::all_of(steps, [this](Step step) { return !Ended() && (this->*step)(); }) &&
           !Ended();
}

StartOutcome astart::Form_Load() {
    static constexpr Step Steps[] = {&astart::Prove,
                                     &astart::CloseOldPlayer,
                                     &astart::MakeSettings,
                                     &astart::CheckVersion,
                                     &astart::MakeMissingFiles,
                                     &astart::PrepareServerAndPlayer,
                                     &astart::CreateWinamp,
                                     &astart::ReadMachine,
                                     &astart::SettingsAreValid,
                                     &astart::ShowLoadingScreen,
                                     &astart::FindOpticalDrives,
                                     &astart::ReferenceServer};
    if (!Run(Steps)) return StartOutcome::Ended;
    return Trap<StartOutcome>(
        base_.report, "There has been an error in astart.form_load", StartOutcome::Ended,
        [&] { return base_.state.Setup ? StartNormally() : StartFirstRun(); });
}

bool astart::Prove() {
    return Trap<bool>(base_.report,
                      "Velkorandum could not perform initialization routines in astart.Form_Load.",
                      false, [&] { return ProveEnvironment(); });
}

bool astart::CloseOldPlayer() {
    if (const WindowHandle old = n_.machine.player.FindWindow(WinampWindowClass))
        n_.machine.player.SendMessage(old, WM_COMMAND, WinampClose, 0);
    return true;
}

bool astart::ReadMachine() {
    base_.state.IsWindowsNT = n_.machine.environment("OS") == "Windows_NT";
    base_.state.DecimalSymbol = base_.locale.DecimalSymbol();
    GetResolutions();
    return true;
}

bool astart::ProveEnvironment() {
    if (!n_.machine.instance.Claim(base_.settings.AppDir())) {
        base_.dialogs.ShowMessage(
            "Velkorandum is already running, or has not finished closing out from "
            "a previous instance.");
        return false;
    }
    if (!FolderExists(base_.settings.Shipped("skins"))) {
        base_.dialogs.ShowMessage("Cannot find skin directory\n" + base_.settings.Shipped("skins") +
                                  " does not exist");
        return false;
    }
    const ScreenMetrics screen = n_.machine.metrics();
    if (screen.dpiX != 96)
        base_.dialogs.ShowMessage(
            "Your DPI settings for your video card are not set to 96 DPI.  Velkorandum will still "
            "run, however it will not appear to be shown on the screen correctly.You can change "
            "this "
            "setting back by going to Control Panel / Display / Settings / Advanced.\nSet it to "
            "96DPI, then restart your computer.  If you have done this already, and you  still see "
            "this message, you may still need to restart your computer.",
            "Warning: Display Settings Incorrect", MessageKind::Warning);
    return true;
}

// What cannot be made is taken for made, so that the system runs from memory.
bool astart::MakeFile(const char* name, const std::string& contents) {
    const std::string file = base_.settings.File(name);
    std::string reason;
    if (FileExists(file) || ReplaceFile(file, contents, &reason)) return CanReplace(file);
    base_.log.WriteDebugLog("Could not make " + file + ": " + reason);
    base_.settings.ini().Assume(file, contents);
    return false;
}

bool astart::MakeSettings() {
    ResetIfAsked(base_.settings);
    if (MakeFile("settings.ini", SettingsFileText(Version)) && base_.settings.Lasting())
        return true;
    base_.dialogs.ShowMessage("Velkorandum cannot write to its directory\n" +
                                  base_.settings.AppDir() +
                                  "\nSettings and positions are lost when it ends.",
                              {}, MessageKind::Warning);
    return true;
}

bool astart::CheckVersion() {
    if (base_.settings.Get(setting::Version) == Version) return true;
    const bool fix = base_.dialogs.AskYesNo(
        "Your settings.ini file appears to be from a different version of Velkorandum.\n"
        "do you want Velkorandum to try to fix this problem?");
    if (!fix) {
        base_.dialogs.ShowMessage(
            "To avoid this issue, you should run RESET.bat from the Velkorandum "
            "directory, then re-launch.");
        return false;
    }
    base_.settings.Set(setting::Version, Version);
    base_.dialogs.ShowMessage("If you have trouble, you should run RESET.bat from the Velkorandum "
                              "directory, then re-launch.");
    return true;
}

bool astart::MakeMissingFiles() {
    MakeFile("kb.ini", KeyboardFileText());
    MakeFile("winamp.ini", WinampFileText());
    if (!FileExists(base_.log.FileName())) base_.log.MakeLogFile();
    if (const SettingsStore& store = base_.settings; store.StateDir() != store.AppDir())
        base_.log.WriteDebugLog(store.AppDir() + " takes no files; what is saved lies in " +
                                store.StateDir());
    return true;
}

bool astart::ServerRegistered() {
    if (CatalogueServerRegistered(n_.machine.registry)) return true;
    const std::string program =
        CatalogueServerProgram(n_.machine.registry, base_.settings.AppDir());
    if (!program.empty() && !n_.machine.registry.Writable()) {
        base_.log.WriteDebugLog("The registry cannot be written; " + program + " is used as it is");
        return true;
    }
    // One failed start is how the server gets registered.
    if (program.empty() ||
        !n_.machine.programs.Start(
            {.program = program, .folder = base_.settings.AppDir(), .hidden = true}))
        throw Error("no catalogue server");
    base_.dialogs.ShowMessage("DB_UPDATE.exe registered!  Restart the application");
    return false;
}

void astart::ForceWinampKeys() {
    const std::string file = base_.settings.File("winamp.ini");
    std::vector<IniKey> keys;
    for (const auto& [key, value] : ForcedWinampKeys)
        keys.push_back({"Winamp", key, value});
    base_.settings.ini().WriteKeys(file, keys);
    base_.settings.Finish(); // the player reads the file when it starts
}

bool astart::PrepareServerAndPlayer() {
    try {
        if (!ServerRegistered()) return false;
        base_.settings.Set(setting::PWR, "0");
        ForceWinampKeys();
        return true;
    } catch (const std::exception&) {
        base_.dialogs.ShowMessage("An activeX EXE is not correctly registered.");
        return false;
    }
}

bool astart::CreateWinamp() {
    try {
        n_.winamp = std::make_unique<cWinamp>(
            WinampNeeds{n_.machine.player, base_.pump, base_.report, base_.settings.AppDir()});
    } catch (const std::exception&) {
        base_.dialogs.ShowMessage("Error Referencing Winamp Class");
        return false;
    }
    if (!n_.winamp->WinAMP_Start()) base_.log.WriteDebugLog("Winamp could not be started");
    n_.winamp->WinAMP_FindWindow();
    return true;
}

void astart::GetResolutions() {
    const ScreenMetrics screen = n_.machine.metrics();
    AppState& s = base_.state;
    const auto set = [&](FrameSize frame) {
        s.ScreenWidth = frame.width;
        s.ScreenHeight = frame.height;
    };
    const std::int32_t size = base_.settings.Get(setting::AppSize);
    if (size == 0) set({screen.width, screen.height});
    if (size > 0 && size < CustomFrame) set(PanelFrames[static_cast<std::size_t>(size - 1)]);
    if (size == CustomFrame)
        set({base_.settings.Get(setting::AppSizeCustomX),
             base_.settings.Get(setting::AppSizeCustomY)});
    if (!HoldsTheInterface(s.ScreenWidth) || !HoldsTheInterface(s.ScreenHeight))
        set({screen.width, screen.height});
    s.ScreenWidthTwips = s.ScreenWidth * 15;
    s.ScreenHeightTwips = s.ScreenHeight * 15;
    if (screen.dpiX > 0) s.fPixelsToTwipsX = 1440.0 / screen.dpiX;
    if (screen.dpiY > 0) s.fPixelsToTwipsY = 1440.0 / screen.dpiY;
}

bool astart::ShowLoadingScreen() {
    if (base_.settings.values.hidemouse) base_.window.ShowCursor(false);
    n_.loading.Load();
    base_.window.ForceForegroundWindow();
    BootStepCount = 0;
    BootStepTotal = 13 + (base_.settings.values.xmpcr_enabled ? 1 : 0) +
                    (base_.settings.values.GPSModule != 0 ? 3 : 0);
    n_.loading.InitProgress(0, BootStepTotal);
    AddBootItem("Starting Velkorandum");
    return true;
}

bool astart::FindOpticalDrives() {
    AddBootItem("Checking for CDROM drives");
    base_.state.CDDrives.clear();
    for (const Drive& drive : base_.volumes.Drives()) {
        if (drive.type != DriveType::CdRom) continue;
        // Letters are kept in upper case; where drives are folders their case matters.
        base_.state.CDDrives.push_back(PathSeparator == '\\' ? ToUpper(Trim(drive.root))
                                                             : drive.root);
        base_.state.CDDriveFound = true;
    }
    base_.state.Setup = base_.settings.Get(setting::Setup);
    return true;
}

bool astart::ReferenceServer() {
    AddBootItem("Initializing Database System");
    const std::string program =
        CatalogueServerProgram(n_.machine.registry, base_.settings.AppDir());
    if (!program.empty() && n_.catalogue.reference) n_.catalogue.reference(program);
    if (!program.empty()) return true;
    base_.dialogs.ShowMessage("Could not reference DB_UPDATE.exe");
    base_.report.ReportError("Could not reference DB_UPDATE.exe", "Not Registered", 0);
    return false;
}

StartOutcome astart::StartFirstRun() {
    timer1_->Start(SupervisorMs);
    n_.loading.ClearScreen();
    n_.firstRun.load();
    base_.screens.Show("settings");
    return base_.screens.CurrentForm == "settings" ? StartOutcome::FirstRun : StartOutcome::Running;
}

StartOutcome astart::StartNormally() {
    AddBootItem("Validating Settings");
    CheckGPS();
    AddBootItem("Setting Current Skin");
    if (!ChooseSkinAtStart()) return StartOutcome::Ended;
    n_.skin.LoadSkin();
    ChooseOpticalDrive();
    if (base_.settings.values.UseScaling) AddBootItem("Using Adaptive Font Scaling");
    Call(n_.catalogue.open);
    timer1_->Start(SupervisorMs);
    FinishExecution();
    return StartOutcome::Running;
}

void astart::CheckGPS() {
    const Settings& s = base_.settings.values;
    if (s.GPSModule == 1) {
        AddBootItem("Checking for GPS");
        if (n_.machine.destinatorInstalled && n_.machine.destinatorInstalled())
            AddBootItem("Destinator Detected");
    }
    if (s.GPSModule == 2 && FileExists(s.EXTGPSexeName))
        AddBootItem((s.EXTGPSexeName + " is a valid executable").c_str());
}

bool astart::ChooseSkinAtStart() {
    const auto time1 = ParseTimeOfDay(base_.settings.values.Time1);
    const auto time2 = ParseTimeOfDay(base_.settings.values.Time2);
    if (!time1 || !time2) {
        base_.dialogs.ShowMessage(
            "Your time must be formatted to this format 'HH:MM:SS AM' in order "
            "for this application to function.\nChange your clock settings, then "
            "run Reset.bat",
            "Clock settings incorrect");
        return false;
    }
    const bool day = IsDayAtStart(base_.clock.Now().MinuteOfDay(), *time1, *time2);
    base_.state.CurrentSkinFile =
        day ? base_.settings.values.CurrentSkin : base_.settings.values.CurrentNTSkin;
    return true;
}

void astart::ChooseOpticalDrive() {
    AppState& s = base_.state;
    std::string& chosen = base_.settings.values.CDDriveLetter;
    if (!s.CDDriveFound) {
        chosen = "NONE";
        return;
    }
    s.CDDriveFound = false;
    for (const std::string& drive : s.CDDrives)
        if (chosen != "NONE" && drive == chosen) s.CDDriveFound = true;
    if (s.CDDriveFound) return;
    chosen = s.CDDrives.front();
    base_.settings.Set(setting::CDDriveLetter, chosen);
}

void astart::AddBootItem(const char* /*text*/) {
    n_.loading.SetProgress(++BootStepCount);
}

} // namespace vk
