#include "home/main_menu.h"

#include "core/text.h"
#include "home/plain_icons.h"
#include "skin/touch_target.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vk {

namespace {

constexpr int ClockIntervalMs = 1000;
constexpr int ClockTicks = 59; // the text is rewritten when the counter stands here
constexpr char RefreshingText[] = "Refreshing Database";
constexpr std::size_t Dots = 16; // above it, one of them blank
constexpr int BlankMs = 20;      // a step of the moving blank

} // namespace

MainMenu::MainMenu(Needs needs, MenuView& view)
    : n_(std::move(needs)), base_(n_.base), view_(view) {
    timer1_ = base_.clock.MakeTimer([this] { Timer1_Timer(); });
    tmrSettingsReload_ = base_.clock.MakeTimer([this] { tmrSettingsReload_Timer(); });
    activation_ = base_.clock.MakeTimer([this] { FirstActivation(); });
}

const MenuIconData* MainMenu::Selected() const {
    const auto index = static_cast<std::size_t>(CurrentSelection - 1);
    return CurrentSelection >= 1 && index < icons_.size() ? &icons_[index] : nullptr;
}

void MainMenu::ReShow() {
    Trap(base_.report, "An error occured in velkorandum.ReShow ", [&] {
        base_.screens.CurrentForm = HomeScreen;
        view_.ShowAtFront();
        view_.ShowFrame(true);
        base_.window.ForceForegroundWindow();
        base_.state.DecimalSymbol = base_.locale.DecimalSymbol();
        LoadSelections();
        if (n_.doors.clearRemote) n_.doors.clearRemote();
        Update(CurrentSelection, false);
        timer1_->Start(ClockIntervalMs);
        n_.loudness.CutAtStart();
        SilencePlayer();
        Message(ClockText());
        base_.screens.HideOthers(HomeScreen);
        ShowRefreshing();
        view_.ShowFrame(true);
        if (base_.screens.Find("settings")) {
            settingsTicks_ = 0;
            tmrSettingsReload_->Start(ClockIntervalMs);
        }
        // After the command that led here.
        if (!std::exchange(activated_, true)) activation_->Start(1);
    });
}

void MainMenu::LoadSelections() {
    icons_ = n_.skin.ReadMenuIcons();
    CurrentSelection = base_.settings.Get(setting::CurrentSelectID);
    if (CurrentSelection == 0) CurrentSelection = n_.skin.data().itemindex;
    if (icons_.empty()) {
        icons_ = PlainIcons();
        CurrentSelection = std::max(1, CurrentSelection);
    }
    view_.ShowIcons();
    view_.ShowFrame(true);
}

void MainMenu::Update(int previous, bool animate) {
    Trap(base_.report, "An error occured in velkorandum.update ", [&] {
        if (previous != CurrentSelection) view_.DrawIcon(previous, false);
        view_.DrawIcon(CurrentSelection, true);
        for (int i = 0; animate && i < 4; ++i) {
            view_.DrawIcon(CurrentSelection, i % 2 != 0);
            base_.pump.Turn();
        }
    });
}

void MainMenu::Move(int MenuIconData::*neighbour) {
    const MenuIconData* icon = Selected();
    // A stored selection that this skin has no icon for must not lock the keys out.
    const int next = icon ? icon->*neighbour : (icons_.empty() ? 0 : 1);
    if (next <= 0) return;
    const int old = std::exchange(CurrentSelection, next);
    Update(old, false);
}

void MainMenu::MoveUp() {
    Trap(base_.report, "An error occured in velkorandum.moveup ",
         [&] { Move(&MenuIconData::of_above); });
}

void MainMenu::MoveDown() {
    Trap(base_.report, "An error occured in velkorandum.movedown ",
         [&] { Move(&MenuIconData::of_below); });
}

void MainMenu::MoveLeft() {
    Trap(base_.report, "An error occured in velkorandum.MoveLeft ",
         [&] { Move(&MenuIconData::of_left); });
}

void MainMenu::MoveRight() {
    Trap(base_.report, "An error occured in velkorandum.MoveRight ",
         [&] { Move(&MenuIconData::of_right); });
}

void MainMenu::switchingform() {
    Trap(base_.report, "An error occured in velkorandum.switchingform ", [&] {
        base_.settings.Set(setting::CurrentSelectID, static_cast<std::int16_t>(CurrentSelection));
        timer1_->Stop();
    });
}

void MainMenu::menuicon_Click(int index) {
    Trap(base_.report, "An error occured in velkorandum.menuicon_Click ", [&] {
        const int old = std::exchange(CurrentSelection, index);
        Update(old, false);
        runok();
    });
}

void MainMenu::Image2_Click() {
    if (n_.doors.setDimmer) n_.doors.setDimmer(false);
}

void MainMenu::ClockBar_Click() {
    Trap(base_.report, "An error occured in velkorandum.Image3_Click ", [&] {
        if (base_.state.Dimmed) Image2_Click();
        switchingform();
        view_.ShowFrame(false);
        n_.doors.openSettings();
    });
}

void MainMenu::PressedAt(int x, int y) {
    if (!base_.settings.values.CleanMenu) return;
    const int width = base_.state.ScreenWidth;
    const int height = base_.state.ScreenHeight;
    const int wide = std::max(width / 20, TouchSide(height));
    const int tall = std::max(height / 20, TouchSide(height));
    const bool bottom = y >= height - tall;
    if (x >= width - wide && y < tall) return Image1_Click();
    if (bottom && x < wide) return ClockBar_Click();
    if (bottom && x >= width - width / 7) Image2_Click();
}

void MainMenu::Image1_Click() {
    Trap(base_.report, "An error occured in velkorandum.Image1_Click ", [&] {
        if (base_.state.Dimmed) Image2_Click();
        if (base_.state.DBState == DBStateValue::Rebuilding && base_.state.quitAttempts < 2) {
            ++base_.state.quitAttempts;
            return Message("Please wait for the database to finish. :" +
                           std::to_string(base_.state.quitAttempts));
        }
        TurnDevicesOff();
        base_.settings.Set(setting::CurrentSelectID, 0);
        base_.window.ShowCursor(true);
        n_.doors.exitApplication();
    });
}

std::string MainMenu::ClockText() const {
    const DateTime now = base_.clock.Now();
    return base_.locale.LongDate(now) + " " + base_.locale.ShortTime(now);
}

// The menu is the one screen on which nothing plays. A mute that a tuner or a suspend left behind
// ends here, or the volume keys would stay locked.
void MainMenu::SilencePlayer() {
    if (n_.winamp.WinAMP_GetStatus() == "1") n_.winamp.WinAMP_SCM(WinampStop);
    n_.loudness.RestoreMute();
}

// Step by step until the catalogue is there: nothing is held meanwhile, the user may go elsewhere.
void MainMenu::FirstActivation() {
    activation_->Start(BlankMs);
    const bool inFront = base_.screens.CurrentForm == HomeScreen;
    // Already running: this menu was only made anew after the settings screen.
    if (base_.state.WinampWatched) return activation_->Stop();
    if (inFront && CatalogueIsAwaited()) return ShowWaiting();
    base_.commands.Run([&] {
        activation_->Stop();
        base_.state.WinampWatched = true;
        ShowRefreshing();
        if (!base_.settings.values.LoadtoMP3 || !inFront) return;
        LastStartSelection = 1;
        runok(LastStartSelection);
    });
}

bool MainMenu::CatalogueIsAwaited() const {
    const DBStateValue state = base_.state.DBState;
    return base_.state.Setup && state != DBStateValue::Disabled && state != DBStateValue::OnLine;
}

void MainMenu::ShowWaiting() {
    std::string dots(Dots, '.');
    dots[std::exchange(blank_, (blank_ + 1) % Dots)] = ' ';
    view_.ShowBanner(dots + "\n" + RefreshingText);
}

void MainMenu::ShowRefreshing() {
    refreshing_ = base_.state.DBState == DBStateValue::Rebuilding;
    view_.ShowBanner(refreshing_ ? RefreshingText : "");
}

void MainMenu::Timer1_Timer() {
    base_.commands.Run([this] { n_.daylight.Check(); });
    if (refreshing_ != (base_.state.DBState == DBStateValue::Rebuilding)) ShowRefreshing();
    if (++clockTicks_ >= ClockTicks) {
        clockTicks_ = 0;
        view_.RefreshClockColours();
        Message(ClockText());
    }
    if (base_.settings.values.alwaysontop && base_.screens.CurrentForm == HomeScreen)
        base_.window.ForceForegroundWindow();
}

// The settings screen's own close routine has to return before the screen goes.
void MainMenu::tmrSettingsReload_Timer() {
    if (++settingsTicks_ < 2) return;
    base_.commands.Run([this] {
        if (ResetSettingsForm()) tmrSettingsReload_->Stop();
    });
}

bool MainMenu::ResetSettingsForm() {
    return base_.screens.CurrentForm.starts_with("settings") || n_.doors.unloadSettings();
}

} // namespace vk
