// The settings screen's logic: the first run, the two folders, the way out.
#pragma once

#include "core/base.h"
#include "core/error_report.h"
#include "core/screens.h"
#include "core/settings.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "library/catalogue/updates.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/locale_info.h"
#include "platform/window_layer.h"
#include "settings/first_receiver.h"
#include "settings/media_folders.h"
#include "skin/loading_screen.h"
#include "skin/skin.h"

#include <functional>
#include <string>

namespace vk {

/// The screen's picture, as its logic asks for it.
class SettingsView {
  public:
    virtual ~SettingsView() = default;
    /// Brings the screen up with its texts as they are now.
    virtual void ShowShell() = 0;
    /// Whether the two buttons that leave the screen can be used.
    virtual void EnableLeaving(bool exitApp, bool done) = 0;
    /// Draws the texts anew.
    virtual void ShowTexts() = 0;
};

class SettingsShell {
  public:
    /// What follows a visit.
    struct WaysOut {
        std::function<void()> finishStart;     ///< the rest of the start, after a first run
        std::function<void()> reloadScreens;   ///< after any other visit
        std::function<void()> askPlayer;       ///< whether the player process still answers
        std::function<void()> exitApplication; ///< ends the process, nothing more is asked
        std::function<void()> resize;          ///< has all screens laid out for the size set
    };
    struct Needs {
        Base& base;
        LoadingScreen& loading;
        SkinStore& skin;
        KeyMap& keys;
        RemoteMap& remoteKeys;
        MediaExtensions& extensions;
        CatalogueUpdates& catalogue;
        Desktop& desktop;
        WaysOut ways;
        FirstReceiver::Needs receiver;
    };

    SettingsShell(Needs needs, SettingsView& view)
        : n_(std::move(needs)), view_(view),
          folders_(n_.base.settings, n_.base.dialogs, n_.extensions), receiver_(n_.receiver) {}

    void ReShow();
    void btnmediadir_Click();
    void btnPlaylistDir_Click();
    /// Asks, then updates the catalogue; while that is under way, stops it.
    void bDBForceUpdate_Click();
    void bDeleteDB_Click();
    /// Turns the updates at each start off or on again.
    void chkDBManualUpdate_Click();
    /// Opens a page of its own, by its name as a screen.
    void ShowPage(const char* name) { n_.base.screens.Show(name); }
    void DoneButton_Click();
    /// Loads the skin that is to be seen now, when it is another one; true when it was.
    bool UseSkin();
    void bExitApp_Click();

    /// `lblSettingsTopInfo`: what the screen is for, or that the catalogue holds something up.
    std::string TopInfo() const;
    /// The state of the catalogue as the screen shows it.
    std::string DBStatusText() const;
    /// What an update is doing, or why the last one failed.
    std::string DBActionText() const { return n_.catalogue.Action(); }
    /// How far an update is, of 100.
    int DBPercent() const { return n_.catalogue.Percent(); }
    bool DBUpdating() const { return n_.catalogue.Busy(); }
    const Settings& Values() const { return n_.base.settings.values; }

    bool FirstRunDue = false; ///< the user has not been through the first run yet

  private:
    void FirstRun();
    void BeginAsToday();
    void TakeFirstDrive();
    void ChooseSkin();
    void ReadRemoteKeys();
    bool RefusedWhileBusy();
    void AskForUpdate();

    Needs n_;
    SettingsView& view_;
    bool refused_ = false; ///< something, as the catalogue was busy
    MediaFolders folders_;
    FirstReceiver receiver_;
};

} // namespace vk
