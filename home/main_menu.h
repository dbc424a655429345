// The home screen's logic: the graph of icons, what they start, and the way back from every screen.
#pragma once

#include "core/base.h"
#include "home/daylight.h"
#include "home/menu_view.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "playback/audio_state.h"
#include "playback/c_winamp.h"
#include "playback/loudness.h"
#include "playback/video_state.h"
#include "skin/skin.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

class MainMenu {
  public:
    /// Where the menu leads to besides the screens that are met by name.
    struct Doors {
        std::function<void()> openSettings; ///< makes and shows the settings screen
        /// Removes it again; false when that has to wait, because a dialog of it is still open.
        std::function<bool()> unloadSettings;
        std::function<void()> loadGPS;
        std::function<void()> exitApplication; ///< unloads every screen
        /// Parts that may be missing.
        std::function<void()> powerAction;
        std::function<void(bool)> setDimmer;
        std::function<void()> clearRemote = {}; ///< drops codes that were not yet carried out
        /// Before the system ends; it says what takes its time.
        std::function<void(const std::function<void(const std::string&)>& say)> turnDevicesOff = {};
    };
    /// All of it outlives the menu.
    struct Needs {
        Base& base;
        SkinStore& skin;
        Daylight& daylight;
        const KeyMap& keys;
        AudioState& audio;
        VideoState& video;
        BrowserState& browser;
        cWinamp& winamp;
        Loudness& loudness;
        Doors doors;
    };

    MainMenu(Needs needs, MenuView& view);

    /// Acts on the selected icon; `item` 0 takes the icon's own function, anything else the
    /// function chosen before.
    void runok(int item = 0);
    /// Draws the selection; `previous` is the icon that lost it. `animate` blinks twice.
    void Update(int previous, bool animate);
    void ReShow();
    /// The menu is what every other screen goes back to, and nothing sounds on it.
    void doquit() {}
    void VolUp() {}
    void VolDown() {}
    void LoadSelections();
    void MoveUp();
    void MoveDown();
    void MoveLeft();
    void MoveRight();
    void switchingform();
    bool Form_KeyDown(const std::string& code);
    /// Runs the operation of what a key or the remote stands for; false when there is none.
    bool DoAction(const InputCode& code);
    /// A touched icon: selects and starts it.
    void menuicon_Click(int index);
    /// The quit button.
    void Image1_Click();
    /// The exit icon and the power key: the power action, which in mode 0 ends the system.
    void Exit();
    /// The dim button.
    void Image2_Click();
    void ClockBar_Click();
    /// A press at a point of the screen in pixels: the hidden zones of the clean menu.
    void PressedAt(int x, int y);
    /// Stops the clock for good; called when the screen goes.
    void Stop() { timer1_->Stop(); }
    /// Removes the settings screen unless it, or a page of it, is in front. False when that has to
    /// wait.
    bool ResetSettingsForm();

    const std::vector<MenuIconData>& Icons() const { return icons_; }

    int CurrentSelection = 0;   ///< selected icon, 1 to the icon count
    int LastStartSelection = 0; ///< function number that runok dispatches on

  private:
    struct Function;
    static const Function Functions[];
    static const ActionRow<MainMenu> Rows[];

    const MenuIconData* Selected() const;
    void Move(int MenuIconData::*neighbour);
    void StartAudio();
    void StartBrowser();
    void StartVideo();
    void StartApplications();
    void StartRadio();
    void StartGPS();
    void TurnDevicesOff();
    void Start() { runok(); }
    void KeyUp();
    void KeyDown();
    void ShowPointer();
    void OpenBrowser(std::int16_t mode);
    bool DiscMatches(std::int32_t serial) const;
    bool Leave(const char* screen);
    void Message(const std::string& text) { view_.SetClockBar(text); }
    std::string ClockText() const;
    void SilencePlayer();
    void FirstActivation();
    bool CatalogueIsAwaited() const;
    void ShowWaiting();
    /// The banner says so while the server works.
    void ShowRefreshing();
    void Timer1_Timer();
    void tmrSettingsReload_Timer();

    Needs n_;
    Base& base_;
    MenuView& view_;
    std::unique_ptr<Timer> timer1_;
    std::unique_ptr<Timer> tmrSettingsReload_;
    std::unique_ptr<Timer> activation_;
    std::vector<MenuIconData> icons_;
    int clockTicks_ = 0;
    int settingsTicks_ = 0;
    std::size_t blank_ = 0; ///< where the moving blank of the banner stands
    bool activated_ = false;
    bool refreshing_ = false; ///< the banner says that the server works
};

} // namespace vk
