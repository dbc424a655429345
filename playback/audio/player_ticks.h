// The player's 100 ms timer, which drives all that it shows.
#pragma once

#include "playback/audio/player_buttons.h"
#include "playback/audio/sources.h"
#include "playback/audio/volume_label.h"

#include <functional>
#include <memory>

namespace vk {

/// A tick is a command: it is left out while another one runs.
class PlayerTicks {
  public:
    /// All of it outlives this object.
    struct Needs {
        const SourceContext& parts;
        Sources& sources;
        PlayerButtons& buttons;
        VolumeLabel& volumeLabel;
        std::function<void()> checkDaylight; ///< every tick: day or night skin; may be empty
        std::function<void()> quit;          ///< what plays was taken out
        std::function<void()> afterVis;      ///< every tick; see `Visualisation::Tick`
    };
    explicit PlayerTicks(Needs needs);

    /// The screen is entered, and draws list and cover anew 2 seconds from now: what lay over them
    /// (a window that closes, a picture mode that changes) may go after the screen has been drawn.
    void Start();
    void Stop() { Timer2->Stop(); }
    /// What is due once a second is done at the next tick.
    void Soon() { bForceUpdate = true; }
    /// Brings the window to the front once a second for that many seconds.
    void BringToFront(int seconds) { pendingForeground_ += seconds; }

  private:
    void Timer2_Timer();
    void Tick();
    void ServeRefresh();
    void FirstTick();
    void KeepInFront();

    Needs n_;
    Base& base_;
    std::unique_ptr<Timer> Timer2;
    int TickCount = 0; ///< ticks since the last full second, 0 to 10
    int pendingForeground_ = 0;
    int refreshIn_ = 0; ///< ticks, 0: none is due
    bool bForceUpdate = false;
};

} // namespace vk
