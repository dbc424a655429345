// One subsystem, as the whole system sees it.
#pragma once

#include "settings/pages/page.h"
#include "startup/whole.h"

#include <vector>

namespace vk {

class Modules;

/// Makes its logic, adapters and screens from the host and owns them. What the whole asks of it are
/// these operations, called in the order of the modules; what a subsystem has no part in it leaves
/// as it is.
class Module {
  public:
    /// Takes its place behind the modules that are there.
    explicit Module(Modules& all);
    virtual ~Module() = default;
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    /// The screens that the settings, as they are now, ask for; made at the start and, after
    /// `Unload`, at each reload.
    virtual std::vector<LoadStep> Steps() { return {}; }
    /// Its pages of the settings, made whenever the settings screen is; they may go on using this
    /// module.
    virtual std::vector<Page> Pages() { return {}; }
    /// The settings have been read, at the start and after a visit to them; the screens come next.
    virtual void SettingsRead() {}
    /// Removes its screens. Nothing of them is on the stack.
    virtual void Unload() {}
    /// Every 400 ms.
    virtual void Supervise() {}
    /// The ignition went off: what plays pauses. And back: what is paused goes on.
    virtual void IgnitionOff() {}
    virtual void IgnitionOn() {}
    /// The machine goes to sleep: save, let devices go; what plays has done so before. And back:
    /// take them again; what played goes on after that.
    virtual void Suspend() {}
    virtual void Resume() {}
    /// The operating system ends the session: leaves its screen, when that is in front.
    virtual void SessionEnds() {}
    /// The system ends, its screens are still there: saves what they hold.
    virtual void Close(bool /*osShutdown*/) {}
    /// Lets programs and devices go.
    virtual void Release() {}
};

} // namespace vk
