// The machine's power: what it tells of sleep and shutdown, and what it is asked for.
#pragma once

#include <functional>
#include <string>

namespace vk {

/// What `Power::onBroadcast` tells; the numbers are those of the Windows broadcast.
enum PowerBroadcast : int {
    PBT_APMQUERYSUSPEND = 0,   ///< may the machine sleep? It waits for the call to return
    PBT_APMSUSPEND = 4,        ///< it goes to sleep now
    PBT_APMRESUMECRITICAL = 6, ///< it is back from a sleep that was not announced
    PBT_APMRESUMESUSPEND = 7   ///< it is back
};

/// What the machine can be asked for.
enum class PowerWish { PowerOff, Hibernate, Suspend };

/// All on the user-interface thread; no operation waits for the machine.
class Power {
  public:
    /// How a wish came out: "" when it is granted, else why it is not.
    using Answer = std::function<void(const std::string& refusal)>;

    virtual ~Power() = default;
    /// Begins to listen, and from then on has the machine wait, before it sleeps or ends, until
    /// what is told of it is done. A machine whose power cannot be reached is looked for again.
    virtual void Listen() = 0;
    /// Asks without questions to the user. Answered some seconds later at most.
    virtual void Ask(PowerWish wish, Answer answer) = 0;

    /// Gets a `PowerBroadcast` and what came with it.
    std::function<void(int event, long data)> onBroadcast;
    /// The machine ends: it waits some seconds for this process.
    std::function<void()> onShutdown;
    /// A line for the log.
    std::function<void(const std::string&)> onProblem;
};

} // namespace vk
