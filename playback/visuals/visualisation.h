// A visualisation over the player: started, found, and ended when the user wants his screen back.
#pragma once

#include "core/base.h"
#include "platform/foreign_windows.h"
#include "platform/input_hooks.h"
#include "playback/c_winamp.h"
#include "playback/visuals/vis_plugins.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// What the machine has for it; null where it has nothing.
struct VisPorts {
    ForeignWindows* windows = nullptr;
    InputHooks* hooks = nullptr;
    std::function<bool()> asks = {}; ///< true while a question waits on our own window
};

/// The plug-in is the player process's, which a command starts and ends; its window is whatever was
/// not there before. One that never opens, hangs or dies costs a line in the log, and the next
/// touch or quit leads back to the player. A question to the user ends it, since it would lie
/// below.
class Visualisation {
  public:
    /// All of it outlives this object.
    struct Needs {
        Base& base;
        cWinamp& winamp;
        VisPorts ports;
        std::function<void()> leave;    ///< the player's screen makes way
        std::function<void()> comeBack; ///< and is shown again
    };
    explicit Visualisation(Needs needs);
    ~Visualisation();
    Visualisation(const Visualisation&) = delete;
    Visualisation& operator=(const Visualisation&) = delete;

    /// Starts the chosen one while audio plays, or ends the one that runs. A command: it waits up
    /// to three seconds with events running, less when it is ended.
    void DoVis();
    /// The screen was touched.
    void ExitVisByMouse();
    /// Goes on to the next of the list; one that runs draws that from now on. Its name, "" when
    /// there is no other.
    std::string NextVis();
    /// The machine goes to sleep: what runs is ended without waiting, and the player is there when
    /// it wakes.
    void Suspend();
    /// The screen goes: the same, but nothing is shown.
    void Unload();
    /// The keyboard's hook is taken out a tick after the end, so that the key that ended it is let
    /// go here as well.
    void Tick();
    /// True from the start to the end of one.
    bool On() const { return bVisOn; }

  private:
    void Start();
    void End();
    std::vector<ForeignWindow> Windows() const;
    void FindWindow(const std::vector<ForeignWindow>& before);
    bool WindowThere() const;
    void CloseLate();
    void ComeBack();
    bool Drop();
    void Look();

    Needs n_;
    Base& base_;
    VisChoice choice_;
    std::unique_ptr<Timer> look_;       ///< whether its window is still there
    std::vector<ForeignWindow> before_; ///< the windows of the screen before it was started
    WindowHandle window_ = 0;           ///< 0: never seen
    std::int32_t VisState = 0;          ///< 1 while it runs
    bool bVisOn = false;
    bool removeKeyboardHook_ = false;
};

} // namespace vk
