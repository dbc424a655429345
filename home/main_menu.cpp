#include "home/main_menu.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vk {

namespace {

constexpr int ClockIntervalMs = 1000;
constexpr int ClockTicks = 59; // the text is rewritten when the counter stands here
constexpr char RefreshingText[] = "Refreshing Database";

} // namespace

MainMenu::MainMenu(Needs needs, MenuView& view) : n_(std::move(needs)), view_(view) {
    timer1_ = n_.clock.MakeTimer([this] { Timer1_Timer(); });
    tmrSettingsReload_ = n_.clock.MakeTimer([this] { tmrSettingsReload_Timer(); });
    activation_ = n_.clock.MakeTimer([this] {
        activation_->Stop();
        FirstActivation();
    });
}

const MenuIconData* MainMenu::Selected() const {
    const auto index = static_cast<std::size_t>(CurrentSelection - 1);
    return CurrentSelection >= 1 && index < icons_.size() ? &icons_[index] : nullptr;
}

void MainMenu::ReShow() {
    Trap(n_.report, "An error occured in velkorandum.ReShow ", [&] {
        n_.screens.CurrentForm = "velkorandum";
        view_.ShowFrame(true);
        n_.window.ForceForegroundWindow();
        n_.state.DecimalSymbol = n_.locale.DecimalSymbol();
        LoadSelections();
        if (n_.clearRemote) n_.clearRemote();
        Update(CurrentSelection, false);
        timer1_->Start(ClockIntervalMs);
        ApplySafeVolume();
        SilencePlayer();
        Message(ClockText());
        n_.screens.HideOthers("velkorandum");
        ShowRefreshing();
        view_.ShowFrame(true);
        if (n_.screens.Find("settings")) {
            settingsTicks_ = 0;
            tmrSettingsReload_->Start(ClockIntervalMs);
        }
        // After the command that led here: it may wait long for the catalogue, and keys that come
        // while a command runs are dropped.
        if (!std::exchange(activated_, true)) activation_->Start(1);
    });
}

void MainMenu::LoadSelections() {
    icons_ = n_.skin.ReadMenuIcons();
    CurrentSelection = n_.settings.Read("main", "CurrentSelectID", IniType::Integer).Integer();
    if (CurrentSelection == 0) CurrentSelection = n_.skin.data().itemindex;
    view_.ShowIcons();
    view_.ShowFrame(true);
}

void MainMenu::Update(int previous, bool animate) {
    Trap(n_.report, "An error occured in velkorandum.update ", [&] {
        if (previous != CurrentSelection) view_.DrawIcon(previous, false);
        view_.DrawIcon(CurrentSelection, true);
        for (int i = 0; animate && i < 4; ++i) {
            view_.DrawIcon(CurrentSelection, i % 2 != 0);
            n_.clock.DoEvents(0);
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
    Trap(n_.report, "An error occured in velkorandum.moveup ",
         [&] { Move(&MenuIconData::of_above); });
}

void MainMenu::MoveDown() {
    Trap(n_.report, "An error occured in velkorandum.movedown ",
         [&] { Move(&MenuIconData::of_below); });
}

void MainMenu::MoveLeft() {
    Trap(n_.report, "An error occured in velkorandum.MoveLeft ",
         [&] { Move(&MenuIconData::of_left); });
}

void MainMenu::MoveRight() {
    Trap(n_.report, "An error occured in velkorandum.MoveRight ",
         [&] { Move(&MenuIconData::of_right); });
}

void MainMenu::switchingform() {
    Trap(n_.report, "An error occured in velkorandum.switchingform ", [&] {
        n_.settings.Write("main", "CurrentSelectID", std::to_string(CurrentSelection));
        timer1_->Stop();
    });
}

void MainMenu::menuicon_Click(int index) {
    Trap(n_.report, "An error occured in velkorandum.menuicon_Click ", [&] {
        const int old = std::exchange(CurrentSelection, index);
        Update(old, false);
        runok();
    });
}

void MainMenu::Image2_Click() {
    if (n_.setDimmer) n_.setDimmer(false);
}

void MainMenu::ClockBar_Click() {
    Trap(n_.report, "An error occured in velkorandum.Image3_Click ", [&] {
        if (n_.state.Dimmed) Image2_Click();
        switchingform();
        view_.ShowFrame(false);
        n_.openSettings();
    });
}

void MainMenu::PressedAt(int x, int y) {
    if (!n_.settings.values.CleanMenu) return;
    const int width = n_.state.ScreenWidth;
    const int height = n_.state.ScreenHeight;
    const bool bottom = y >= height - height / 20;
    if (x >= width - width / 20 && y < height / 20) return Image1_Click();
    if (bottom && x < width / 20) return ClockBar_Click();
    if (bottom && x >= width - width / 7) Image2_Click();
}

void MainMenu::Image1_Click() {
    Trap(n_.report, "An error occured in velkorandum.Image1_Click ", [&] {
        if (n_.state.Dimmed) Image2_Click();
        if (n_.state.DBState == DBStateValue::Rebuilding && n_.state.quitAttempts < 2) {
            ++n_.state.quitAttempts;
            return Message("Please wait for the database to finish. :" +
                           std::to_string(n_.state.quitAttempts));
        }
        n_.settings.Write("main", "CurrentSelectID", "0");
        n_.window.ShowCursor(true);
        n_.exitApplication();
    });
}

std::string MainMenu::ClockText() const {
    const DateTime now = n_.clock.Now();
    return n_.locale.LongDate(now) + " " + n_.locale.ShortTime(now);
}

// Once a run, and not without a card. A player with a level of its own will bring that back, so
// there the mark is left to it.
void MainMenu::ApplySafeVolume() {
    const Settings& s = n_.settings.values;
    const std::int32_t maximum = n_.volume.VolumeMax();
    if (!s.safevolume || n_.state.SafeVolumeDone || maximum <= 0) return;
    const auto safe = static_cast<std::int32_t>(std::int64_t{maximum} * s.safevol_value / 100);
    if (n_.volume.VolumeLevel() > safe) n_.volume.VolumeLevel(safe);
    n_.state.SafeVolumeDone = !s.UseSplitVolume;
}

// The menu is the one screen on which nothing plays. A mute that a tuner or a suspend left behind
// ends here, or the volume keys would stay locked.
void MainMenu::SilencePlayer() {
    if (n_.winamp.WinAMP_GetStatus() == "1") n_.winamp.WinAMP_SCM(WinampStop);
    n_.volume.VolumeMute(n_.state.bMuted);
}

void MainMenu::FirstActivation() {
    // Already running: this menu was only made anew after the settings screen.
    if (n_.state.WinampWatched) return;
    const DBStateValue state = n_.state.DBState;
    const bool waits = n_.state.Setup && !n_.state.WinampWatched &&
                       state != DBStateValue::Disabled && state != DBStateValue::OnLine;
    if (waits)
        WaitForCatalogue();
    else
        view_.ShowBanner("Loading");
    n_.state.WinampWatched = true;
    ShowRefreshing();
    // The user may have gone elsewhere meanwhile, or ended the system.
    if (!n_.settings.values.LoadtoMP3 || n_.screens.CurrentForm != "velkorandum") return;
    LastStartSelection = 1;
    runok(LastStartSelection);
}

void MainMenu::ShowRefreshing() {
    refreshing_ = n_.state.DBState == DBStateValue::Rebuilding;
    view_.ShowBanner(refreshing_ ? RefreshingText : "");
}

void MainMenu::WaitForCatalogue() {
    constexpr std::size_t Dots = 16;
    for (std::size_t blank = 0;
         n_.state.DBState != DBStateValue::OnLine && n_.state.DBState != DBStateValue::Disabled &&
         n_.screens.CurrentForm == "velkorandum";
         blank = (blank + 1) % Dots) {
        std::string dots(Dots, '.');
        dots[blank] = ' ';
        view_.ShowBanner(dots + "\n" + RefreshingText);
        n_.clock.DoEvents(0);
        n_.clock.Sleep(20); // one step of the moving blank; events run between
    }
}

void MainMenu::Timer1_Timer() {
    n_.daylight.Check();
    if (refreshing_ != (n_.state.DBState == DBStateValue::Rebuilding)) ShowRefreshing();
    if (++clockTicks_ >= ClockTicks) {
        clockTicks_ = 0;
        view_.RefreshClockColours();
        Message(ClockText());
    }
    if (n_.settings.values.alwaysontop && n_.screens.CurrentForm == "velkorandum")
        n_.window.ForceForegroundWindow();
}

// The settings screen's own close routine has to return before the screen goes.
void MainMenu::tmrSettingsReload_Timer() {
    if (++settingsTicks_ >= 2 && ResetSettingsForm()) tmrSettingsReload_->Stop();
}

bool MainMenu::ResetSettingsForm() {
    return n_.screens.CurrentForm.starts_with("settings") || n_.unloadSettings();
}

} // namespace vk
