// Keys, touches and the remote: from the device to the screen in front.
#pragma once

#include "app/host/host.h"
#include "app/host/touch_filter.h"
#include "input/input_router.h"
#include "input/new_screen.h"
#include "input/remote/remote.h"
#include "startup/astart.h"

#include <functional>

namespace vk {

class InputModule : public Module {
  public:
    explicit InputModule(Host& host);
    ~InputModule() override;

    /// What was open sleeps too, and may have been pulled out meanwhile.
    void Resume() override;
    void Release() override { remote.CloseRemote(); }
    RemoteHooks Hooks();
    /// Leads the keys into the buttons of the screen in front.
    void EnterButtons() { buttons_.Enter(); }
    /// Lets nothing through any more.
    void Close(bool /*osShutdown*/) override { closed_ = true; }

    std::function<void()> onPower; ///< the power key; set by who carries it out

  private:
    InputRouter::Needs RouterNeeds();

    Host& host_;
    NewScreen newScreen_{host_.screens, host_.base.clock};
    TouchFilter touches_{newScreen_};
    ButtonKeys buttons_{host_.screens, host_.settings, host_.base.clock};
    InputRouter router_{RouterNeeds()};
    bool closed_ = false;

  public:
    Remote remote;
};

} // namespace vk
