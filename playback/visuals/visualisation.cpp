#include "playback/visuals/visualisation.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int OpenMs = 1000, SettleMs = 2000, CloseMs = 1000;
constexpr int LookMs = 500;

bool IsIn(const std::vector<ForeignWindow>& windows, const ForeignWindow& window) {
    return std::ranges::any_of(
        windows, [&](const ForeignWindow& each) { return each.handle == window.handle; });
}

} // namespace

Visualisation::Visualisation(Needs needs)
    : n_(std::move(needs)), base_(n_.base), choice_(base_.settings),
      look_(base_.clock.MakeTimer([this] { Look(); })) {}

Visualisation::~Visualisation() {
    Unload();
}

std::vector<ForeignWindow> Visualisation::Windows() const {
    return n_.ports.windows ? n_.ports.windows->List() : std::vector<ForeignWindow>();
}

void Visualisation::DoVis() {
    if (VisState == 1) return End();
    if (n_.winamp.WinAMP_GetStatus() == "1") Start();
}

// A window of another program may open in the same second: the title decides, then the size.
void Visualisation::FindWindow(const std::vector<ForeignWindow>& before) {
    std::vector<ForeignWindow> opened = Windows();
    std::erase_if(opened, [&](const ForeignWindow& window) { return IsIn(before, window); });
    const std::string name = choice_.Name();
    const auto rank = [&](const ForeignWindow& window) {
        return std::pair(window.title == name, window.area.width * window.area.height);
    };
    const auto best = std::ranges::max_element(opened, {}, rank);
    window_ = best == opened.end() ? 0 : best->handle;
}

bool Visualisation::WindowThere() const {
    return window_ != 0 && n_.ports.windows->Exists(window_);
}

// Whoever wants it ended meanwhile ends the waiting.
void Visualisation::Start() {
    bVisOn = true;
    n_.leave();
    removeKeyboardHook_ = false;
    if (n_.ports.hooks) {
        n_.ports.hooks->onTouch = [this] { ExitVisByMouse(); };
        n_.ports.hooks->HookKeyboard();
        n_.ports.hooks->HookMouse();
    }
    before_ = Windows();
    n_.winamp.WinAMP_SCM(WinampRunVis);
    VisState = 1;
    look_->Start(LookMs);
    const bool goesOn = base_.pump.Pause("the visualisation", OpenMs);
    if (VisState != 1) return;
    FindWindow(before_);
    if (goesOn) base_.pump.Pause("the visualisation's picture", SettleMs);
    if (VisState != 1) return;
    if (window_ == 0) FindWindow(before_);
    if (window_ == 0 && n_.ports.windows)
        base_.log.WriteDebugLog("The visualisation has opened no window");
}

// What has never been seen may have ended by itself, and then the command has started it anew.
void Visualisation::CloseLate() {
    base_.pump.Until({.what = "a late visualisation",
                      .done =
                          [this] {
                              FindWindow(before_);
                              return window_ != 0;
                          },
                      .timeoutMs = CloseMs,
                      .stepMs = CloseMs / 10});
    if (window_ != 0) n_.ports.windows->Close(window_);
}

void Visualisation::End() {
    look_->Stop();
    VisState = 0;
    if (window_ == 0) FindWindow(before_);
    if (WindowThere())
        n_.ports.windows->Close(window_);
    else if (window_ == 0)
        n_.winamp.WinAMP_SCM(WinampRunVis);
    if (window_ == 0) CloseLate();
    base_.pump.Until({.what = "the end of the visualisation",
                      .done = [this] { return !WindowThere(); },
                      .timeoutMs = CloseMs});
    if (WindowThere()) {
        base_.log.WriteDebugLog("The visualisation does not close and is ended");
        n_.winamp.WinAMP_SCM(WinampRunVis);
    }
    ComeBack();
}

void Visualisation::ComeBack() {
    window_ = 0;
    if (n_.ports.hooks) n_.ports.hooks->UnhookMouse();
    removeKeyboardHook_ = true;
    bVisOn = false;
    base_.window.ForceForegroundWindow();
    n_.comeBack();
}

// True when one ran.
bool Visualisation::Drop() {
    look_->Stop();
    if (std::exchange(VisState, 0) != 1) return false;
    n_.winamp.WinAMP_SCM(WinampRunVis);
    return true;
}

void Visualisation::Tick() {
    if (!removeKeyboardHook_) return;
    removeKeyboardHook_ = false;
    if (n_.ports.hooks) n_.ports.hooks->UnhookKeyboard();
}

void Visualisation::ExitVisByMouse() {
    base_.commands.Run(Commands::When::Interrupt, [this] {
        if (n_.ports.hooks) n_.ports.hooks->UnhookMouse();
        if (VisState == 1) End();
    });
}

// The window was closed by itself or with its program; or something has to be answered.
void Visualisation::Look() {
    if (n_.ports.asks && n_.ports.asks()) return Suspend();
    if (window_ == 0 || WindowThere()) return;
    base_.commands.Run([this] {
        if (VisState == 1) End();
    });
}

std::string Visualisation::NextVis() {
    return choice_.Step(1) ? choice_.Name() : std::string();
}

void Visualisation::Suspend() {
    if (Drop()) ComeBack();
}

void Visualisation::Unload() {
    Drop();
    if (n_.ports.hooks) {
        n_.ports.hooks->UnhookMouse();
        n_.ports.hooks->UnhookKeyboard();
        n_.ports.hooks->onTouch = {};
    }
    bVisOn = false;
}

} // namespace vk
