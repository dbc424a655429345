#include "app/application.h"

namespace vk {

namespace {

// A display that does not answer must not hold the start back.
constexpr int ExposeMs = 100;
constexpr int ExposeStepMs = 2;
// After another size was chosen, when the screen in front has been painted in it.
constexpr int OthersMs = 50;

} // namespace

Application::Application(const Folders& folders, const Ports& ports, std::function<void()> exit)
    : host_(folders, ports), exit_(std::move(exit)),
      end_(ports.machine.clock.MakeTimer([this] { TryToEnd(); })),
      others_(ports.machine.clock.MakeTimer([this] { LayOutOthers(); })) {
    host_.quit = [this](bool osShutdown) { Quit(osShutdown); };
    host_.window.onClose = [this] { Quit(false); };
    rooms_.settings.finishStart = [this] { start_.FinishExecution(); };
    rooms_.settings.reloadScreens = [this] { start_.ReloadScreens(); };
    rooms_.settings.resize = [this] { Resize(); };
}

Application::~Application() {
    host_.modules.Ask(&Module::Unload);
}

bool Application::Start() {
    starting_ = true;
    host_.window.ShowOnScreen();
    WaitUntilShown();
    const StartOutcome outcome = start_.Form_Load();
    starting_ = false;
    if (ending_) WayOut();
    return outcome != StartOutcome::Ended && !ending_;
}

// What is drawn before the window is on the screen is lost, and the loading screen does not wait.
void Application::WaitUntilShown() {
    host_.pump.Until({.what = "the window",
                      .done = [this] { return host_.window.Exposed(); },
                      .timeoutMs = ExposeMs,
                      .stepMs = ExposeStepMs});
}

void Application::Resize() {
    start_.GetResolutions();
    if (const ScreenOperations* front = host_.screens.Current()) front->DoLayout();
    others_->Start(OthersMs);
}

// Their pictures are read and scaled anew, for which nobody who looks at the front has to wait.
void Application::LayOutOthers() {
    others_->Stop();
    host_.screens.LayOut();
}

void Application::Quit(bool osShutdown) {
    if (ending_) return;
    ending_ = true;
    osShutdown_ = osShutdown;
    host_.commands.Close();
    host_.pump.Close();
    host_.dialogs.CloseAll();
    end_->Start(1);
}

// The screens that asked for the end, and what waited, may still be on the stack.
void Application::TryToEnd() {
    if (starting_ || host_.commands.ListBusy() || host_.pump.Waiting() || host_.dialogs.Active())
        return;
    WayOut();
}

void Application::WayOut() {
    end_->Stop();
    others_->Stop();
    start_.Form_QueryUnload(osShutdown_);
    host_.modules.Ask(&Module::Close, osShutdown_);
    start_.Form_Unload();
    host_.modules.Ask(&Module::Unload);
    host_.settings.Finish();
    exit_();
}

astart::Needs Application::StartNeeds() {
    const Ports& ports = host_.ports;
    return {.base = host_.base,
            .machine = {ports.machine.instance, ports.machine.programs, ports.machine.registry,
                        ports.sound.player, ports.screen.metrics, ports.machine.environment,
                        [this] { return rooms_.navigation.GetDestinatorInstalled(); }},
            .loading = host_.background,
            .skin = host_.skin,
            .tables = {host_.keys, host_.remoteKeys, rooms_.library.extensions},
            .winamp = rooms_.playback.winamp,
            .whole = host_.modules.AsWhole(),
            .firstRun = {[this] { rooms_.settings.Load(); }, [this] { rooms_.settings.Remove(); }},
            .remote = rooms_.input.Hooks(),
            .catalogue = rooms_.library.Hooks()};
}

} // namespace vk
