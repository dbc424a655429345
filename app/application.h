// The whole system: the host, the subsystems on it, the start and the way out.
#pragma once

#include "app/host/host.h"
#include "app/subsystems.h"
#include "startup/astart.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// One a process. Needs a QApplication around it.
class Application {
  public:
    /// `exit` is called once, at the end of the way out: it leaves the event loop. What `ports`
    /// names outlives this object.
    Application(const Folders& folders, const Ports& ports, std::function<void()> exit);
    ~Application();

    /// The start; false when the process is to end at once.
    bool Start();
    /// Ends the system in good order: what waits and every dialog come to their end, and when the
    /// last operation has returned the screens are left and saved. `osShutdown` when the operating
    /// system wants it. Safe at any moment, also while the system starts; asked again it does
    /// nothing.
    void Quit(bool osShutdown);

    /// What the parts of the whole are, for tests.
    Host& host() { return host_; }
    Subsystems& rooms() { return rooms_; }

  private:
    astart::Needs StartNeeds();
    void WaitUntilShown();
    void Resize();
    void LayOutOthers();
    void TryToEnd();
    void WayOut();

    Host host_;
    Subsystems rooms_{host_};
    astart start_{StartNeeds()};
    std::function<void()> exit_;
    std::unique_ptr<Timer> end_;    ///< looks whether the last operation has returned
    std::unique_ptr<Timer> others_; ///< has what is not in front laid out, too
    bool starting_ = false;
    bool ending_ = false;
    bool osShutdown_ = false;
};

} // namespace vk
