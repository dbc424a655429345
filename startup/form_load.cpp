// The start in its order.
#include "core/settings_files.h"
#include "core/text.h"
#include "core/time_of_day.h"
#include "core/version.h"
#include "library/catalogue_server.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "startup/astart.h"

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

} // namespace

astart::astart(Needs needs) : n_(std::move(needs)) {
    timer1_ = n_.clock.MakeTimer([this] { Timer1_Timer(); });
}

astart::~astart() = default;

StartOutcome astart::End() {
    n_.unloadAll();
    return StartOutcome::Ended;
}

StartOutcome astart::Form_Load() {
    const bool proven = Trap<bool>(
        n_.report, "Velkorandum could not perform initialization routines in astart.Form_Load.",
        false, [&] { return ProveEnvironment(); });
    if (!proven) return End();
    if (const WindowHandle old = n_.player.FindWindow(WinampWindowClass))
        n_.player.SendMessage(old, WM_COMMAND, WinampClose, 0);
    if (!CheckVersion()) return End();
    MakeMissingFiles();
    if (!PrepareServerAndPlayer()) return End();
    if (!CreateWinamp()) return End();
    n_.state.IsWindowsNT = n_.environment("OS") == "Windows_NT";
    n_.state.DecimalSymbol = n_.locale.DecimalSymbol();
    GetResolutions();
    if (!SettingsAreValid()) return End();
    ShowLoadingScreen();
    FindOpticalDrives();
    n_.state.Setup = n_.settings.Read("main", "Setup", IniType::Boolean).Bool();
    AddBootItem("Initializing Database System");
    if (!ReferenceServer()) return End();
    return Trap<StartOutcome>(n_.report, "There has been an error in astart.form_load",
                              StartOutcome::Ended,
                              [&] { return n_.state.Setup ? StartNormally() : StartFirstRun(); });
}

bool astart::ProveEnvironment() {
    if (n_.processes.ProcessRunning("velkorandum.exe", n_.processes.OwnId())) {
        n_.dialogs.ShowMessage(
            "Velkorandum is already running, or has not finished closing out from "
            "a previous instance.");
        return false;
    }
    if (!FolderExists(n_.settings.File("skins"))) {
        n_.dialogs.ShowMessage("Cannot find skin directory\n" + n_.settings.File("skins") +
                               " does not exist");
        return false;
    }
    const ScreenMetrics screen = n_.metrics();
    if (screen.dpiX != 96)
        n_.dialogs.ShowMessage(
            "Your DPI settings for your video card are not set to 96 DPI.  Velkorandum will still "
            "run, however it will not appear to be shown on the screen correctly.You can change "
            "this "
            "setting back by going to Control Panel / Display / Settings / Advanced.\nSet it to "
            "96DPI, then restart your computer.  If you have done this already, and you  still see "
            "this message, you may still need to restart your computer.",
            "Warning: Display Settings Incorrect", MessageKind::Warning);
    return true;
}

bool astart::CheckVersion() {
    if (!FileExists(n_.settings.SettingsFile()) &&
        !MakeSettingsFile(n_.settings.SettingsFile(), Version))
        n_.log.WriteDebugLog("Could not make " + n_.settings.SettingsFile());
    if (n_.settings.Read("main", "version") == Version) return true;
    const bool fix = n_.dialogs.AskYesNo(
        "Your settings.ini file appears to be from a different version of Velkorandum.\n"
        "do you want Velkorandum to try to fix this problem?");
    if (!fix) {
        n_.dialogs.ShowMessage("To avoid this issue, you should run RESET.bat from the Velkorandum "
                               "directory, then re-launch.");
        return false;
    }
    n_.settings.Write("main", "Version", Version);
    n_.dialogs.ShowMessage("If you have trouble, you should run RESET.bat from the Velkorandum "
                           "directory, then re-launch.");
    return true;
}

void astart::MakeMissingFiles() {
    const std::string keyboard = n_.settings.File("kb.ini");
    const std::string winamp = n_.settings.File("winamp.ini");
    if (!FileExists(keyboard) && !MakeKeyboardFile(keyboard))
        n_.log.WriteDebugLog("Could not make " + keyboard);
    if (!FileExists(winamp) && !MakeWinampFile(winamp))
        n_.log.WriteDebugLog("Could not make " + winamp);
    if (!FileExists(n_.log.FileName())) n_.log.MakeLogFile();
}

bool astart::ServerRegistered() {
    if (CatalogueServerRegistered(n_.registry)) return true;
    // One failed start is how the server gets registered.
    const std::string program = CatalogueServerProgram(n_.registry, n_.settings.AppDir());
    if (program.empty() || !n_.player.RunHidden(program, "", n_.settings.AppDir()))
        throw Error("no catalogue server");
    n_.dialogs.ShowMessage("DB_UPDATE.exe registered!  Restart the application");
    return false;
}

void astart::ForceWinampKeys() {
    const std::string file = n_.settings.File("winamp.ini");
    std::vector<IniKey> keys;
    for (const auto& [key, value] : ForcedWinampKeys)
        keys.push_back({"Winamp", key, value});
    n_.settings.ini().WriteKeys(file, keys);
    n_.settings.Finish(); // the player reads the file when it starts
}

bool astart::PrepareServerAndPlayer() {
    try {
        if (!ServerRegistered()) return false;
        n_.settings.Write("Temp", "PWR", "0");
        ForceWinampKeys();
        return true;
    } catch (const std::exception&) {
        n_.dialogs.ShowMessage("An activeX EXE is not correctly registered.");
        return false;
    }
}

bool astart::CreateWinamp() {
    try {
        winamp_ = std::make_unique<cWinamp>(
            WinampNeeds{n_.player, n_.clock, n_.report, n_.settings.AppDir()});
    } catch (const std::exception&) {
        n_.dialogs.ShowMessage("Error Referencing Winamp Class");
        return false;
    }
    if (!winamp_->WinAMP_Start()) n_.log.WriteDebugLog("Winamp could not be started");
    winamp_->WinAMP_FindWindow();
    return true;
}

void astart::GetResolutions() {
    const ScreenMetrics screen = n_.metrics();
    AppState& s = n_.state;
    const auto set = [&](int width, int height) {
        s.ScreenWidth = width;
        s.ScreenHeight = height;
    };
    switch (n_.settings.Read("main", "appsize", IniType::Long).Long()) {
    case 0:
        set(screen.width, screen.height);
        break;
    case 1:
        set(640, 480);
        break;
    case 2:
        set(720, 400);
        break;
    case 3:
        set(800, 400);
        break;
    case 4:
        set(800, 600);
        break;
    case 5:
        set(1024, 768);
        break;
    case 6:
        set(n_.settings.Read("main", "AppSizeCustomX", IniType::Long).Long(),
            n_.settings.Read("main", "AppSizeCustomY", IniType::Long).Long());
        break;
    default:
        break;
    }
    s.ScreenWidthTwips = s.ScreenWidth * 15;
    s.ScreenHeightTwips = s.ScreenHeight * 15;
    if (screen.dpiX > 0) s.fPixelsToTwipsX = 1440.0 / screen.dpiX;
    if (screen.dpiY > 0) s.fPixelsToTwipsY = 1440.0 / screen.dpiY;
}

void astart::ShowLoadingScreen() {
    if (n_.settings.values.hidemouse) n_.window.ShowCursor(false);
    n_.loading.Load();
    n_.window.ForceForegroundWindow();
    BootStepCount = 0;
    BootStepTotal = 13 + (n_.settings.values.xmpcr_enabled ? 1 : 0) +
                    (n_.settings.values.GPSModule != 0 ? 3 : 0);
    n_.loading.InitProgress(0, BootStepTotal);
    AddBootItem("Starting Velkorandum");
}

void astart::FindOpticalDrives() {
    AddBootItem("Checking for CDROM drives");
    n_.state.CDDrives.clear();
    for (const Drive& drive : n_.volumes.Drives()) {
        if (drive.type != DriveType::CdRom) continue;
        // Letters are kept in upper case; where drives are folders their case matters.
        n_.state.CDDrives.push_back(PathSeparator == '\\' ? ToUpper(Trim(drive.root)) : drive.root);
        n_.state.CDDriveFound = true;
    }
}

bool astart::MakeServer() {
    const std::string program = CatalogueServerProgram(n_.registry, n_.settings.AppDir());
    if (!program.empty() && n_.catalogue.reference) n_.catalogue.reference(program);
    return !program.empty();
}

void astart::RefClass() {
    MakeServer();
    if (n_.settings.values.remoteStatus && n_.initRemote) n_.initRemote();
}

void astart::UnRefClass() {
    for (const auto& release : {n_.catalogue.release, n_.closeRemote})
        TrapAndLog(n_.report, "astart.UnRefClass: ", [&] { Call(release); });
}

bool astart::ReferenceServer() {
    if (MakeServer()) return true;
    n_.dialogs.ShowMessage("Could not reference DB_UPDATE.exe");
    n_.report.ReportError("Could not reference DB_UPDATE.exe", "Not Registered", 0);
    return false;
}

StartOutcome astart::StartFirstRun() {
    timer1_->Start(SupervisorMs);
    n_.loading.ClearScreen();
    n_.loader.settings();
    n_.screens.Show("settings");
    return n_.screens.CurrentForm == "settings" ? StartOutcome::FirstRun : StartOutcome::Running;
}

StartOutcome astart::StartNormally() {
    AddBootItem("Validating Settings");
    CheckGPS();
    AddBootItem("Setting Current Skin");
    if (!ChooseSkinAtStart()) return End();
    n_.skin.LoadSkin();
    ChooseOpticalDrive();
    if (n_.settings.values.UseScaling) AddBootItem("Using Adaptive Font Scaling");
    Call(n_.catalogue.open);
    timer1_->Start(SupervisorMs);
    FinishExecution();
    return StartOutcome::Running;
}

void astart::CheckGPS() {
    const Settings& s = n_.settings.values;
    if (s.GPSModule == 1) {
        AddBootItem("Checking for GPS");
        if (n_.destinatorInstalled && n_.destinatorInstalled()) AddBootItem("Destinator Detected");
    }
    if (s.GPSModule == 2 && FileExists(s.EXTGPSexeName))
        AddBootItem((s.EXTGPSexeName + " is a valid executable").c_str());
}

bool astart::ChooseSkinAtStart() {
    const auto time1 = ParseTimeOfDay(n_.settings.values.Time1);
    const auto time2 = ParseTimeOfDay(n_.settings.values.Time2);
    if (!time1 || !time2) {
        n_.dialogs.ShowMessage(
            "Your time must be formatted to this format 'HH:MM:SS AM' in order "
            "for this application to function.\nChange your clock settings, then "
            "run Reset.bat",
            "Clock settings incorrect");
        return false;
    }
    const bool day = IsDayAtStart(n_.clock.Now().MinuteOfDay(), *time1, *time2);
    n_.state.CurrentSkinFile =
        day ? n_.settings.values.CurrentSkin : n_.settings.values.CurrentNTSkin;
    return true;
}

void astart::ChooseOpticalDrive() {
    AppState& s = n_.state;
    std::string& chosen = n_.settings.values.CDDriveLetter;
    if (!s.CDDriveFound) {
        chosen = "NONE";
        return;
    }
    s.CDDriveFound = false;
    for (const std::string& drive : s.CDDrives)
        if (chosen != "NONE" && drive == chosen) s.CDDriveFound = true;
    if (s.CDDriveFound) return;
    chosen = s.CDDrives.front();
    n_.settings.Write("main", "CDDriveLetter", chosen);
}

void astart::AddBootItem(const char* /*text*/) {
    n_.loading.SetProgress(++BootStepCount);
}

} // namespace vk
