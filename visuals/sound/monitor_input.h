// What the sound server plays, whoever plays it.
#pragma once

#include "visuals/sound/sound_ring.h"

#include <atomic>
#include <thread>

namespace vk {

/// Listens to the server's default output from the first moment to the last, on a thread of its
/// own. A server that goes or is not there yet is tried again every two seconds.
class MonitorInput {
  public:
    /// `ring` outlives this object.
    explicit MonitorInput(SoundRing& ring);
    ~MonitorInput();
    MonitorInput(const MonitorInput&) = delete;
    MonitorInput& operator=(const MonitorInput&) = delete;

    /// True when there is a server to listen to.
    static bool Possible();

  private:
    void Run();
    void Listen();

    SoundRing& ring_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

} // namespace vk
