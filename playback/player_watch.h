// The watchdog of the player process.
#pragma once

#include "core/base.h"
#include "platform/player_window.h"
#include "playback/c_winamp.h"
#include "playback/transport.h"

#include <cstdint>
#include <memory>

namespace vk {

/// Starts the player process anew when it has ended, and ends it when it never takes messages or no
/// longer answers them: in growing pauses, with one message, and without ever waiting for it. What
/// plays is left when it was lost with the process; music behind a process that hung goes on.
class PlayerWatch {
  public:
    /// How long a process that answers nothing, and one that is starting, is left alone.
    static constexpr int SilentMs = 4000, StartMs = 8000;
    /// The pause after a first start; each further one is twice as long.
    static constexpr int FirstPauseMs = 400, LongestPauseMs = 60000;
    /// A process that has lived that long has come to stay.
    static constexpr int SteadyMs = 10000;

    /// All of it outlives this object.
    struct Needs {
        Base& base;
        PlayerWindow& window;
        cWinamp& winamp;
        Transport& transport;
    };
    explicit PlayerWatch(Needs needs);

    /// Every tick of the supervisor.
    void Look();

  private:
    /// What the process was at when it last answered.
    struct Playing {
        std::int32_t track = -1;   ///< none
        std::int32_t position = 0; ///< seconds
    };
    std::int64_t Lasted() const { return n_.base.clock.TickMs() - since_; }
    Playing Ask();
    void SeeAnswering();
    void End(const char* why);
    void Replace();
    void Leave();

    Needs n_;
    std::unique_ptr<Timer> message_; ///< shows it outside of the tick that asked for it
    PlayerState state_ = PlayerState::Answers;
    std::int64_t since_; ///< when that state began
    std::int64_t nextStartMs_ = 0;
    int starts_ = 0; ///< in a row, none of which has held
    bool told_ = false;
    Playing playing_;
    bool lost_ = false;   ///< music went with the process, and the screen is to be left
    bool goesOn_ = false; ///< music stopped with the process, and goes on with the next
};

} // namespace vk
