// The screen behind all screens: proves the machine, makes the others, and supervises them.
#pragma once

#include "core/base.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "library/tags/media_type.h"
#include "platform/instance_lock.h"
#include "platform/player_window.h"
#include "platform/programs.h"
#include "platform/registry.h"
#include "platform/screen_metrics.h"
#include "playback/c_winamp.h"
#include "skin/loading_screen.h"
#include "skin/skin.h"
#include "startup/whole.h"

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

/// The machine as the start proves it.
struct StartMachine {
    InstanceLock& instance;
    Programs& programs;
    const Registry& registry;
    PlayerWindow& player;
    std::function<ScreenMetrics()> metrics;
    std::function<std::string(const std::string&)> environment; ///< "" for a missing variable
    std::function<bool()> destinatorInstalled = {};             ///< empty: it is not
};

/// What the start reads from the settings for others.
struct UserTables {
    KeyMap& keys;
    RemoteMap& remoteKeys;
    MediaExtensions& extensions;
};

/// What the start does with the catalogue; empty functions where it is not used.
struct CatalogueHooks {
    /// Takes the server, a program, into use; called before `open`.
    std::function<void(const std::string& program)> reference = {};
    std::function<void()> open = {}; ///< unless it was opened before
};

/// And with the remote; empty functions for a device that is not there.
struct RemoteHooks {
    std::function<bool()> init = {};
    std::function<void()> clear = {};            ///< drops received codes
    std::function<std::string()> learnText = {}; ///< the value of key learn at the end
};

/// And with the settings screen, which leads through the first run.
struct FirstRunHooks {
    std::function<void()> load;   ///< makes and registers it
    std::function<void()> unload; ///< removes it again
};

/// Never shown; lives until the process ends. Makes the player's remote control and owns the
/// supervisor timer.
class astart {
  public:
    struct Needs {
        Base& base;
        StartMachine machine;
        LoadingScreen& loading;
        SkinStore& skin;
        UserTables tables;
        std::unique_ptr<cWinamp>& winamp; ///< made here, as soon as its settings are written
        Whole whole;
        FirstRunHooks firstRun;
        RemoteHooks remote;
        CatalogueHooks catalogue;
    };

    explicit astart(Needs needs);
    ~astart();

    /// The whole start in its order, up to the first screen.
    StartOutcome Form_Load();
    /// The second half of the start; called by the settings screen after a first run.
    void FinishExecution();
    /// Sets the size that the interface is laid out for, from key AppSize; the display's where that
    /// gives none that can be used.
    void GetResolutions();
    /// True when settings, folders and skins can be used. False: a message was shown and the
    /// process is to stop.
    bool SettingsAreValid();
    /// Counts one finished step of the start; the text only names it in the code.
    void AddBootItem(const char* text);
    /// Loads the screens anew after the settings screen was left.
    void ReloadScreens();
    /// Before the screens go: `osShutdown` when the operating system ends the session, the user's
    /// wish otherwise.
    void Form_QueryUnload(bool osShutdown);
    /// Lets what runs beside the screens go: the catalogue server, the remote's receiver. What
    /// fails at that is only logged.
    void UnRefClass();
    /// The orderly exit. Runs once.
    void Form_Unload();

    int BootStepCount = 0;
    int BootStepTotal = 0;

  private:
    using Step = bool (astart::*)();
    /// Runs the steps in their order; false when one of them, or the user, ends the start.
    template<class Steps> bool Run(const Steps& steps);
    bool Ended() const { return base_.pump.Closed(); }
    bool Prove();
    bool ProveEnvironment();
    bool CloseOldPlayer();
    bool ReadMachine();
    bool CheckVersion();
    bool MakeFile(const char* name, const std::string& contents);
    bool MakeSettings();
    bool MakeMissingFiles();
    bool PrepareServerAndPlayer();
    bool ServerRegistered();
    void ForceWinampKeys();
    bool CreateWinamp();
    bool ShowLoadingScreen();
    bool FindOpticalDrives();
    bool ReferenceServer();
    StartOutcome StartFirstRun();
    StartOutcome StartNormally();
    void CheckGPS();
    bool ChooseSkinAtStart();
    void ChooseOpticalDrive();
    bool FoldersAreValid();
    bool SkinsAreThere(bool& stop);
    bool AskRevert();
    void ReadUserSettings();
    /// Makes the screens, in the order of their `place`; the number of the step is counted.
    void LoadScreens(int LoadStep::Place::*place, const char* LoadStep::*text);
    void StartRemote();
    void Timer1_Timer();
    static void Call(const std::function<void()>& hook) {
        if (hook) hook();
    }
    static constexpr int SupervisorMs = 400;

    Needs n_;
    Base& base_;
    std::unique_ptr<Timer> timer1_;
    bool keepRemoteLearning_ = false; ///< set when the settings were found unusable
    bool unloaded_ = false;
};

} // namespace vk
