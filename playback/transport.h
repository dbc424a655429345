// What plays now, and the keys of a tape deck for it: for every screen that does not play itself.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

class InputCode;

/// What plays. Texts are UTF-8, and empty where nothing is known.
struct NowPlaying {
    std::string title;
    std::string artist;
    std::int32_t position = -1; ///< seconds into the track; -1 unknown
    bool playing = false;       ///< there is sound: neither paused nor stopped
    bool operator==(const NowPlaying&) const = default;
};

/// Each operation runs on what plays now, whichever screen is in front, and does nothing while
/// nothing plays.
class Transport {
  public:
    virtual ~Transport() = default;
    /// Pauses, or goes on.
    virtual void DoPause() = 0;
    /// Goes on, or plays the selected entry.
    virtual void DoPlay() = 0;
    /// The next and the previous track, channel or station.
    virtual void MoveAhead() = 0;
    virtual void MoveBack() = 0;
    /// A step inside of what plays.
    virtual void DoFF() = 0;
    virtual void DoRW() = 0;
    /// Saves what plays and stops it.
    virtual void doquit() = 0;
    /// Acts on what a map gives a meaning, as on the player's own screen; true when it was used.
    virtual bool DoAction(const InputCode& code) = 0;
    virtual NowPlaying Now() = 0;
    /// True while what plays (or pauses) was begun by the player process and ends with it.
    virtual bool NeedsPlayer() const { return false; }
    /// The player process is another one: has it play on what it lost, that zero-based track of the
    /// list at `seconds`; a negative track is the one that was played last, from its beginning.
    virtual void GoOn(std::int32_t /*track*/, std::int32_t /*seconds*/) {}
};

/// Stands for whoever plays, and does nothing while nobody does: one object a process, which
/// outlives the screens.
class TransportLink : public Transport {
  public:
    /// From now on `player` plays; null: nobody. A player takes itself out before it goes.
    void Connect(Transport* player) { player_ = player; }
    bool Connected() const { return player_; }

    void DoPause() override { Tell(&Transport::DoPause); }
    void DoPlay() override { Tell(&Transport::DoPlay); }
    void MoveAhead() override { Tell(&Transport::MoveAhead); }
    void MoveBack() override { Tell(&Transport::MoveBack); }
    void DoFF() override { Tell(&Transport::DoFF); }
    void DoRW() override { Tell(&Transport::DoRW); }
    void doquit() override { Tell(&Transport::doquit); }
    bool DoAction(const InputCode& code) override { return player_ && player_->DoAction(code); }
    NowPlaying Now() override { return player_ ? player_->Now() : NowPlaying{}; }
    bool NeedsPlayer() const override { return player_ && player_->NeedsPlayer(); }
    void GoOn(std::int32_t track, std::int32_t seconds) override {
        if (player_) player_->GoOn(track, seconds);
    }

  private:
    void Tell(void (Transport::*operation)()) {
        if (player_) (player_->*operation)();
    }

    Transport* player_ = nullptr;
};

} // namespace vk
