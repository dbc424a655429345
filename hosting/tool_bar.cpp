#include "hosting/tool_bar.h"

#include "hosting/held_keys.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr const char* ListScreen = "playlists";

} // namespace

ToolBar::ToolBar(Needs needs, ToolBarView& view)
    : n_(std::move(needs)), view_(view), loudnessShown_(n_.loudness,
                                                        [this](const std::string& level) {
                                                            if (InFront()) Say("Volume : " + level);
                                                        }),
      Timer1_(n_.base.clock.MakeTimer([this] { Timer1_Timer(); })),
      look_(n_.base.clock.MakeTimer([this] {
          look_->Stop();
          Timer1_Timer();
      })),
      hold_(n_.base.clock.MakeTimer([this] {
          hold_->Stop();
          heldLong_ = true;
          view_.EnterButtons();
      })) {
    n_.hosting.onWindows = [this] {
        if (shown_) look_->Start(1);
    };
}

ToolBar::~ToolBar() {
    Hidden();
    n_.hosting.onWindows = {};
}

void ToolBar::Do(const char* operation, const std::function<void()>& work) const {
    TrapAndLog(n_.base.report,
               std::string("There has been an error in ExtAppTools.") + operation + " ", work);
}

// Coming and going --------------------------------------------------------------------------------

void ToolBar::ReShow() {
    if (!n_.hosting.Watch()) return Leave();
    n_.base.screens.CurrentForm = ToolBarName;
    n_.base.screens.HideOthers(ToolBarName);
    shown_ = true;
    HoldKeys();
    Timer1_->Start(LookMs);
    saidUntilMs_ = 0;
    SetExtAppText();
    n_.surfaces.Put(ToolBarName,
                    {Layer::Program, [] {}, [this](bool shown) { ShowProgram(shown); }});
}

// A dialog is drawn in our own window.
void ToolBar::ShowProgram(bool shown) {
    RunningApp* app = n_.hosting.Current();
    if (!shown) {
        if (app) n_.hosting.Collection().LetOthersOver(*app);
        view_.HideBar();
        n_.windows.HoldKeys({});
        return n_.base.window.ForceForegroundWindow();
    }
    HoldKeys();
    if (app) n_.hosting.Collection().ComeToFront(*app);
    view_.ShowAtFront();
}

void ToolBar::switchingform() {
    if (n_.SaveAudioData) n_.SaveAudioData();
    Hidden();
}

void ToolBar::Hidden() {
    if (!std::exchange(shown_, false)) return;
    for (Timer* timer : {Timer1_.get(), look_.get(), hold_.get()})
        timer->Stop();
    KeysUp();
    n_.windows.onKey = n_.windows.onKeyUp = {};
    n_.windows.onKeptTouch = {};
    n_.windows.HoldKeys({});
    n_.surfaces.Remove(ToolBarName);
    if (RunningApp* app = n_.hosting.Current()) n_.hosting.Collection().LetOthersOver(*app);
    view_.HideBar();
    n_.base.window.ForceForegroundWindow();
}

void ToolBar::Leave() {
    Hidden();
    if (n_.base.pump.Closed()) return;
    n_.browser.ListMode = ListApplications;
    if (!n_.base.screens.Show(ListScreen)) n_.base.screens.Show(HomeScreen);
}

// The program -------------------------------------------------------------------------------------

void ToolBar::doquit() {
    Do("DoQuit", [this] {
        if (!InFront()) return;
        if (n_.SaveAudioData) n_.SaveAudioData();
        Timer1_->Stop();
        if (const RunningApp* app = n_.hosting.Current()) Say("Closing " + app->name + "...");
        if (n_.hosting.CloseCurrent()) return Leave();
        Timer1_->Start(LookMs);
        n_.hosting.Watch(); // its question is one of its windows by now
        if (const RunningApp* app = n_.hosting.Current()) {
            n_.hosting.Collection().ComeToFront(*app);
            view_.ShowAtFront();
            Say(app->name + " asks before it closes. Close again to end it.", SentenceMs);
        }
    });
}

// Not in the middle of a command, which may be closing it.
void ToolBar::Timer1_Timer() {
    n_.base.commands.Run([this] {
        if (!shown_) return;
        if (n_.checkDaylight) n_.checkDaylight();
        const RunningApp* app = n_.hosting.Current();
        const WindowHandle before = app ? app->hWnd : 0;
        if (!n_.hosting.Watch()) {
            if (n_.SaveAudioData) n_.SaveAudioData();
            return Leave();
        }
        app = n_.hosting.Current();
        if (app->hWnd != before && app->hWnd != 0) {
            n_.hosting.Collection().ComeToFront(*app);
            view_.ShowAtFront();
        }
        SetExtAppText();
    });
}

void ToolBar::runok() {
    if (const RunningApp* app = n_.hosting.Current()) n_.windows.Focus(app->hWnd);
}

void ToolBar::imgSwap_Click() {
    if (InFront()) Leave();
}

void ToolBar::imgMoveMe_Click() {
    view_.MoveTo(!view_.AtTop());
}

// What plays --------------------------------------------------------------------------------------

void ToolBar::MoveAhead() {
    Do("MoveAhead", [this] { n_.transport.MoveAhead(); });
}

void ToolBar::MoveBack() {
    Do("MoveBack", [this] { n_.transport.MoveBack(); });
}

void ToolBar::VolUp() {
    Do("VolUp", [this] { n_.loudness.VolUp(); });
}

void ToolBar::VolDown() {
    Do("VolDown", [this] { n_.loudness.VolDown(); });
}

void ToolBar::Say(const std::string& text, int milliseconds) {
    saidUntilMs_ = n_.base.clock.TickMs() + milliseconds;
    view_.ShowText(text);
}

void ToolBar::SetExtAppText() {
    if (n_.base.clock.TickMs() < saidUntilMs_) return;
    const NowPlaying now = n_.transport.Now();
    const bool both = !now.artist.empty() && !now.title.empty();
    view_.ShowText(now.artist + (both ? " - " : "") + now.title);
}

// Keys --------------------------------------------------------------------------------------------

namespace {

constexpr ActionRow<ToolBar> Rows[] = {
    {Action::quit, &ToolBar::doquit},        {Action::SWMP, &ToolBar::imgSwap_Click},
    {Action::apps, &ToolBar::imgSwap_Click}, {Action::ok, &ToolBar::runok},
    {Action::Vdown, &ToolBar::VolDown},      {Action::vup, &ToolBar::VolUp},
    {Action::down, &ToolBar::MoveDown},      {Action::up, &ToolBar::MoveUp},
    {Action::forward, &ToolBar::MoveAhead},  {Action::back, &ToolBar::MoveBack},
    {Action::mute, &ToolBar::domute},
};
constexpr Action ForPlayer[] = {Action::shuffle, Action::play, Action::pause,
                                Action::FF,      Action::REW,  Action::addfav};

} // namespace

bool ToolBar::Form_KeyDown(const std::string& code) {
    return DoAction(InputCode(code, n_.keys));
}

bool ToolBar::DoAction(const InputCode& code) {
    if (RunAction(*this, Rows, code)) return true;
    return std::ranges::any_of(ForPlayer, [&](Action action) { return code.Mapped(action); }) &&
           n_.transport.DoAction(code);
}

void ToolBar::Wheel(int delta) {
    for (std::int32_t step = 0; step < n_.base.settings.values.WheelSteps(); ++step)
        delta > 0 ? VolUp() : VolDown();
}

void ToolBar::HoldKeys() {
    n_.windows.onKey = [this](int key) { KeyHeld(key, true); };
    n_.windows.onKeyUp = [this](int key) { KeyHeld(key, false); };
    n_.windows.onKeptTouch = [this](WindowHandle window, int x, int y) {
        view_.TakeTouch(window, x, y);
    };
    n_.windows.HoldKeys(KeysHeldBack(n_.keys));
}

// Of what leads back a short press closes the program, a long one leads into the buttons.
void ToolBar::KeyHeld(int key, bool down) {
    const std::string code = std::to_string(key);
    if (!InputCode(code, n_.keys).Means(Action::quit)) {
        if (down && n_.press) n_.press(code);
        return;
    }
    if (down) { // also again and again while it is held
        if (std::exchange(heldKey_, key) != key) hold_->Start(HoldMs);
        return;
    }
    const bool shortly = heldKey_ == key && !heldLong_;
    KeysUp();
    if (shortly && n_.press) n_.press(code);
}

void ToolBar::KeysUp() {
    hold_->Stop();
    heldKey_ = 0;
    heldLong_ = false;
}

void ToolBar::ButtonsLeft() {
    if (shown_) runok();
}

} // namespace vk
