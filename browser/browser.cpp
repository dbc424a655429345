#include "browser/browser.h"

#include "browser/history_walk.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vk {

namespace {

constexpr int SecondMs = 1000;

constexpr ActionRow<Browser> Rows[] = {
    {Action::ok, &Browser::runok},
    {Action::quit, &Browser::doquit},
    {Action::forward, &Browser::MoveAhead},
    {Action::back, &Browser::MoveBack},
    {Action::up, &Browser::MoveUp},
    {Action::down, &Browser::MoveDown},
    {Action::vup, &Browser::VolUp},
    {Action::Vdown, &Browser::VolDown},
    {Action::SWMP, &Browser::Swap},
    {Action::pageup, &Browser::PgUp},
    {Action::pagedown, &Browser::PgDn},
    {Action::Search, &Browser::JumpToSearch},
    {Action::gps, &Browser::ShowGPS},
    {Action::MP3toRadio, &Browser::ShowRadio},
    {Action::eject, &Browser::Eject},
    {Action::resume, &Browser::Resume},
    {Action::apps, &Browser::ToggleApplications},
};

// While a text is asked for: the list lies behind the keyboard.
constexpr ActionRow<Browser> BehindText[] = {
    {Action::vup, &Browser::VolUp},
    {Action::Vdown, &Browser::VolDown},
    {Action::SWMP, &Browser::Swap},
    {Action::gps, &Browser::ShowGPS},
    {Action::MP3toRadio, &Browser::ShowRadio},
};

// What the player does with these it does out of sight, too.
constexpr std::array PlayerActions = {Action::mute, Action::shuffle, Action::play,  Action::pause,
                                      Action::FF,   Action::REW,     Action::addfav};

} // namespace

Browser::Browser(const BrowserNeeds& needs, BrowserModels models, BrowserView& view)
    : desk_(needs, models.list, view), rightList_(models.rightList), text_(models.text),
      lists_(desk_, models.rightList), building_(lists_, models.rightList, models.text),
      chooser_(lists_, building_, models.text, [this] { Leave(); }), buttons_(lists_, chooser_),
      ways_(desk_, [this] { Leave(); }),
      loudnessShown_(needs.players.loudness,
                     [this](const std::string& level) { ShowLoudness(level); }),
      Timer2(needs.base.clock.MakeTimer([this] { Tick(); })) {}

// Among the lists that are built from, what ended the reading of one has done enough.
bool Browser::OnlyEnds() const {
    return desk_.needs.base.commands.Following() && desk_.Building();
}

void Browser::ReShow() {
    desk_.Run("ReShow", [this] {
        desk_.needs.base.screens.CurrentForm = BrowserName;
        desk_.view.ShowAtFront();
        text_.Close();
        building_.Enter();
        desk_.SqlView = false;
        lists_.trail.Begin();
        if (!desk_.Building()) lists_.trail.Clear();
        chooser_.SetRecurse(false);
        Timer2->Start(SecondMs);
        buttons_.ShowState();
        ways_.SetPlayerButton();
        lists_.Populate();
        const bool restore = std::exchange(desk_.needs.state.RestoreHistory, false);
        if (restore && !desk_.Building() && desk_.needs.CatalogueOnLine() &&
            desk_.needs.Options().UseBrowseHistory)
            RestoreBrowseHistory(lists_, chooser_);
        desk_.needs.base.screens.HideOthers(BrowserName);
    });
}

void Browser::switchingform() {
    desk_.Hush();
    Timer2->Stop();
    lists_.trail.Store(desk_.needs.base.settings,
                       desk_.XMView ? setting::XMBrowseHistory : setting::BrowseHistory);
}

void Browser::Leave() {
    buttons_.CloseToolFrame();
    switchingform();
}

void Browser::Form_Unload(bool osShutdown) {
    Base& base = desk_.needs.base;
    if (osShutdown) base.report.Log("form unloaded by administrative request - os shutdown");
    if (base.screens.CurrentForm != BrowserName) return;
    switchingform();
    base.screens.CurrentForm.clear();
}

void Browser::runok() {
    buttons_.CloseToolFrame();
    if (building_.RightListFocus()) return building_.RemoveSelected();
    desk_.Run("runok", [this] { chooser_.Choose(); });
}

void Browser::ChooseLeft() {
    if (desk_.Building()) building_.FocusLeft();
    runok();
}

void Browser::ChooseRight() {
    if (!desk_.Building()) return;
    buttons_.CloseToolFrame();
    building_.RemoveSelected();
}

void Browser::SaveList() {
    if (!desk_.Building()) return;
    buttons_.CloseToolFrame();
    building_.Finish();
}

void Browser::MoveList(void (ListModel::*move)()) {
    const bool right = building_.RightListFocus();
    ((right ? rightList_ : desk_.list).*move)();
    right ? desk_.view.ReDrawRightList() : desk_.view.ReDrawList();
}

void Browser::MoveBack() {
    if (desk_.needs.base.commands.Following()) return;
    if (building_.RightListFocus()) return ToggleListFocus();
    desk_.Run("MoveBack", [this] { chooser_.Back(); });
}

void Browser::MoveAhead() {
    if (desk_.Building()) return ToggleListFocus();
    desk_.Run("MoveAhead", [this] { chooser_.Ahead(); });
}

void Browser::VolUp() {
    desk_.needs.players.loudness.VolUp();
}

void Browser::VolDown() {
    desk_.needs.players.loudness.VolDown();
}

// Not over what is said of a list that is on its way.
void Browser::ShowLoudness(const std::string& level) {
    const Base& base = desk_.needs.base;
    if (base.pump.Waiting() || base.screens.CurrentForm != BrowserName) return;
    desk_.Say("Volume : " + level);
}

void Browser::doquit() {
    buttons_.CloseToolFrame();
    if (desk_.needs.base.screens.CurrentForm != BrowserName || OnlyEnds()) return;
    if (text_.IsOpen())
        text_.Cancel();
    else if (desk_.Building())
        building_.Finish();
    else
        ways_.Back();
}

void Browser::Swap() {
    if (desk_.needs.players.audio.PlayMode == PlayNone) return;
    if (!desk_.Building() && !text_.IsOpen()) desk_.needs.state.FromPlayer = true;
    doquit();
}

void Browser::GoHome() {
    if (!OnlyEnds() && !building_.Keeps()) ways_.GoHome();
}

void Browser::ShowGPS() {
    if (ways_.HasGPS() && !building_.Keeps()) ways_.ShowGPS();
}

void Browser::Eject() {
    if (!desk_.Building() && buttons_.HasDiscDrive()) buttons_.Eject();
}

void Browser::Resume() {
    if (!desk_.Building()) buttons_.Resume();
}

void Browser::ToggleApplications() {
    if (!desk_.Building()) buttons_.ToggleApplications();
}

void Browser::ShowRadio() {
    if (ways_.HasRadio() && !building_.Keeps()) ways_.ShowRadio();
}

void Browser::JumpToSearch() {
    if (desk_.needs.state.ListMode == ListApplications) return;
    buttons_.CloseToolFrame();
    desk_.Run("JumpToSearch", [this] {
        if (building_.RightListFocus()) building_.FocusLeft();
        chooser_.Search().Jump();
    });
}

void Browser::MouseWheel(int delta) {
    if (delta == 0) return;
    const Settings& options = desk_.needs.Options();
    if (options.MouseFunction == 0) {
        if (text_.IsOpen()) return text_.Wheel(delta);
        return delta > 0 ? MoveUp() : MoveDown();
    }
    for (std::int32_t step = 0; step < options.WheelSteps(); ++step)
        delta > 0 ? VolUp() : VolDown();
}

bool Browser::Form_KeyDown(const std::string& code) {
    return DoAction(InputCode(code, desk_.needs.keys));
}

bool Browser::Repeats(const InputCode& key) const {
    if (text_.IsOpen()) return TextEntry::Repeats(key);
    // Sideways they lead through the folders, or delete.
    const bool leads = key.Means(Action::back) || key.Means(Action::forward);
    return GoesOnWhileHeld(key) && !leads;
}

bool Browser::DoAction(const InputCode& code) {
    if (text_.Key(code)) return true;
    if (text_.IsOpen() ? RunAction(*this, BehindText, code) : RunAction(*this, Rows, code))
        return true;
    return std::ranges::any_of(PlayerActions, [&](Action action) { return code.Mapped(action); }) &&
           desk_.needs.players.transport.DoAction(code);
}

void Browser::Tick() {
    buttons_.ShowState();
    if (text_.IsOpen()) return;
    desk_.needs.base.commands.Run([this] { lists_.Follow(); });
}

} // namespace vk
