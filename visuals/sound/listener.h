// Everything that is heard and known of what plays, gathered beside the drawing.
#pragma once

#include "visuals/sound/player_link.h"
#include "visuals/sound/sound_ring.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace vk {

/// A thread that asks the player four times a second and sees to the sound.
class Listener {
  public:
    struct Events {
        std::function<void(const std::string& file)> track; ///< another one plays
        std::function<void()> gone;                         ///< the player has gone
    };
    /// `socketPath` is the player's. The events come on the listener's own thread.
    Listener(std::string socketPath, Events events);
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    const SoundRing& Sound() const { return ring_; }

  private:
    void Run();
    bool Wait();
    void TellTrack();

    Events events_;
    SoundRing ring_;
    PlayerLink link_;
    std::string told_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool stop_ = false;
    std::thread thread_;
};

} // namespace vk
