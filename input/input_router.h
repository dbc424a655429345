// The one way from a key or a code of the remote to the operation of the screen in front.
#pragma once

#include "core/screens.h"
#include "input/actions.h"
#include "platform/clock.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vk {

/// While a command runs, and events with it, keys and codes are dropped. So is what comes right
/// after a change of screen: it was pressed for the screen that has gone.
class InputRouter {
  public:
    /// After a change of screen; milliseconds. Nobody answers a new screen faster.
    static constexpr int NewScreenMs = 100;
    /// A key quit that comes later than this into a command ends it (a long list that is being
    /// built); milliseconds.
    static constexpr int InterruptMs = 250;

    /// All of it outlives the router.
    struct Needs {
        Screens& screens;
        const Clock& clock;
        const KeyMap& keys;
        const RemoteMap& remoteKeys;
        /// Works the dialog in front; false when there is none. Keys reach dialogs by themselves.
        std::function<bool(const InputCode&)> dialog = {};
        std::function<void()> powerAction = {}; ///< empty: power does what the screen makes of it
    };

    explicit InputRouter(Needs needs) : n_(std::move(needs)) {}

    /// A key, the decimal text of its code, with "%" in front while Alt is held; true when it was
    /// used.
    bool Key(const std::string& code);
    /// A code of the remote.
    void IRCommand(const std::string& code);

  private:
    bool Dropped(const InputCode& code, bool mayInterrupt) const;
    bool Run(const std::function<bool()>& command);
    bool Power(const InputCode& code);

    Needs n_;
    bool running_ = false;
    std::int64_t startedMs_ = 0;   ///< when the running command began
    std::int64_t deafUntilMs_ = 0; ///< after a change of screen
};

} // namespace vk
