// The screen behind all screens: proves the machine, makes the others, and supervises them.
#pragma once

#include "core/app_state.h"
#include "core/debug_log.h"
#include "core/error_report.h"
#include "core/screens.h"
#include "core/settings.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "library/tags/media_type.h"
#include "platform/clock.h"
#include "platform/locale_info.h"
#include "platform/player_window.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/screen_metrics.h"
#include "platform/volumes.h"
#include "platform/window_layer.h"
#include "playback/c_winamp.h"
#include "skin/loading_screen.h"
#include "skin/skin.h"
#include "startup/screen_loader.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// How `Form_Load` came out.
enum class StartOutcome {
    Ended,    ///< a message was shown where needed; the process is to stop
    FirstRun, ///< the settings screen is in front
    Running   ///< the main menu is in front
};

/// What start-up and supervision do with the catalogue; empty functions where it is not used.
struct CatalogueHooks {
    /// Takes the server, a program, into use; called before `open`.
    std::function<void(const std::string& program)> reference;
    std::function<void()> open;      ///< unless it was opened before
    std::function<void()> supervise; ///< every tick of the supervisor
    std::function<void()> release;   ///< lets the server go
};

/// Never shown; lives until the process ends. Owns the player's remote control and the supervisor
/// timer.
class astart {
  public:
    struct Needs {
        AppState& state;
        SettingsStore& settings;
        const DebugLog& log;
        ErrorReport& report;
        Dialogs& dialogs;
        Clock& clock;
        const LocaleInfo& locale;
        const Volumes& volumes;
        const Processes& processes;
        const Registry& registry;
        WindowLayer& window;
        PlayerWindow& player;
        Screens& screens;
        LoadingScreen& loading;
        SkinStore& skin;
        KeyMap& keys;
        RemoteMap& remoteKeys;
        MediaExtensions& extensions;
        ScreenLoader& loader;
        std::function<ScreenMetrics()> metrics;
        std::function<std::string(const std::string&)> environment; ///< "" for a missing variable
        std::function<void()> unloadAll; ///< closes every screen and ends the event loop
        /// Parts that may be missing: an empty function is a device or program that is not there.
        std::function<bool()> initRemote;
        std::function<void()> clearRemote;            ///< drops received codes
        std::function<void()> closeRemote;            ///< closes the receiver
        std::function<std::string()> remoteLearnText; ///< the value of key learn at the end
        std::function<bool()> destinatorInstalled;
        CatalogueHooks catalogue = {};
    };

    explicit astart(Needs needs);
    ~astart();

    /// The whole start in its order, up to the first screen.
    StartOutcome Form_Load();
    /// The second half of the start; called by the settings screen after a first run.
    void FinishExecution();
    /// Sets the size that the interface is laid out for, from key AppSize.
    void GetResolutions();
    /// True when settings, folders and skins can be used. False: a message was shown and the
    /// process is to stop.
    bool SettingsAreValid();
    /// Counts one finished step of the start; the text only names it in the code.
    void AddBootItem(const char* text);
    /// Shows the GPS screen where there is one.
    void LoadGPS();
    /// Loads the screens anew after the settings screen was left.
    void ReloadScreens();
    /// Before the screens go: `osShutdown` when the operating system ends the session, the user's
    /// wish otherwise.
    void Form_QueryUnload(bool osShutdown);
    /// Makes what runs beside the screens: the catalogue server and, when it is enabled, the
    /// remote's receiver. A missing program or device is left out.
    void RefClass();
    /// Lets both go; what fails at that is only logged.
    void UnRefClass();
    /// The orderly exit. Runs once.
    void Form_Unload();

    cWinamp* Winamp() { return winamp_.get(); }

    int BootStepCount = 0;
    int BootStepTotal = 0;

  private:
    bool ProveEnvironment();
    bool CheckVersion();
    void MakeMissingFiles();
    bool PrepareServerAndPlayer();
    bool ServerRegistered();
    void ForceWinampKeys();
    bool CreateWinamp();
    void ShowLoadingScreen();
    void FindOpticalDrives();
    bool MakeServer();
    bool ReferenceServer();
    StartOutcome StartFirstRun();
    StartOutcome StartNormally();
    void CheckGPS();
    bool ChooseSkinAtStart();
    void ChooseOpticalDrive();
    bool FoldersAreValid();
    bool SkinsAreThere(bool& stop);
    bool AskRevert();
    void LoadScreen(const char* step, const std::function<void()>& load);
    void StartRemote();
    void Timer1_Timer();
    void WatchPlayer();
    static void Call(const std::function<void()>& hook) {
        if (hook) hook();
    }
    StartOutcome End();

    static constexpr int SupervisorMs = 400;

    Needs n_;
    std::unique_ptr<cWinamp> winamp_;
    std::unique_ptr<Timer> timer1_;
    bool keepRemoteLearning_ = false; ///< set when the settings were found unusable
    bool unloaded_ = false;
};

} // namespace vk
