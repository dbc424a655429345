// The player: its list, what plays of it and how, driven by messages and by the output's events.
#pragma once

#include "platform/linux/player_socket.h"
#include "player/engine/output.h"
#include "player/engine/play_order.h"
#include "player/engine/player_settings.h"
#include "player/engine/track_clock.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace vk {

/// Everything happens on the caller's one thread and nothing waits: a message is answered from
/// what is known now.
class Engine {
  public:
    /// `nowNs` is the steady clock in nanoseconds; `seed` makes the random order.
    Engine(Output& output, const PlayerSettings& settings, std::function<std::int64_t()> nowNs,
           std::uint32_t seed);

    /// The answer to a message of the wire; nothing when it asked the player to close.
    std::optional<std::int32_t> Message(const PlayerRequest& request);
    /// Adds paths, each ended by a NUL. A list whose hand-over began before the list was last
    /// cleared belongs to the past and is dropped. Carries out a play that waited for the list.
    void AddList(std::string_view paths, std::int64_t startedNs);
    void OnEvent(const OutputEvent& event);
    /// The title of a player's window: "3. What plays - Winamp".
    std::string Title() const;
    /// Path or address of what plays or is paused, "" for nothing.
    std::string File() const;

  private:
    struct Command;
    struct Query;
    static const Command Commands[];
    static const Query Queries[];

    // Commands.
    void Previous() { Move(false); }
    void Play();
    void Pause();
    void Stop();
    void Next() { Move(true); }
    void Rewind() { SeekTo(Position() - JumpMs); }
    void Forward() { SeekTo(Position() + JumpMs); }
    void ToggleShuffle();
    // Queries and settings; each takes wParam and answers.
    std::int32_t Version(std::int32_t) { return 0x2081; }
    std::int32_t Clear(std::int32_t);
    std::int32_t Status(std::int32_t);
    std::int32_t Time(std::int32_t which);
    std::int32_t Seek(std::int32_t positionMs);
    std::int32_t SetIndex(std::int32_t index);
    std::int32_t SetVolume(std::int32_t volume);
    std::int32_t SetBalance(std::int32_t balance);
    std::int32_t Index(std::int32_t) { return list_.Index(); }
    std::int32_t Info(std::int32_t which) { return which == 1 ? facts_.bitRate : 0; }
    std::int32_t SelectBand(std::int32_t band);
    std::int32_t SetBand(std::int32_t value);

    static constexpr std::int64_t JumpMs = 5000;
    std::int64_t NowMs() const { return nowNs_() / 1000000; }
    std::int64_t Position() const;
    int* Band(std::int32_t band);
    void ApplyEqualiser();
    void Move(bool forward);
    void SeekTo(std::int64_t positionMs);
    void StartCurrent();
    void Open();
    void Halt();
    void Forget();
    void PrepareNext();
    void OnStarted(const OutputEvent& event);
    void OnEnded();
    void OnFailed();
    void TakeFacts(const TrackFacts& facts);

    Output& output_;
    std::function<std::int64_t()> nowNs_;
    PlayOrder list_;
    EqualiserValues equaliser_;
    bool advance_ = true;
    std::int32_t selectedBand_ = 0;
    std::int32_t balance_ = 0;

    bool active_ = false; ///< a track is wanted: opening, playing or paused
    bool opened_ = false; ///< it sounds, or would if it were not paused
    bool continuing_ =
        false; ///< the one before it sounded: while this one opens it reads as playing
    bool paused_ = false;
    bool moved_ = false;       ///< the index was changed since and waits to be played
    bool remembered_ = false;  ///< a play waits for its list
    bool backward_ = false;    ///< unplayable entries are skipped towards the beginning
    std::size_t failures_ = 0; ///< unplayable entries in a row
    std::uint32_t track_ = 0;  ///< number of the wanted track in events
    std::uint32_t counter_ = 0;
    TrackFacts facts_;
    std::string title_; ///< what a stream says that plays
    TrackClock clock_;
    std::int64_t ignorePositionsUntilMs_ = 0;
    std::int64_t clearedNs_ = 0;

    std::int32_t preparedIndex_ = -1;
    std::uint32_t preparedTrack_ = 0;
    TrackFacts preparedFacts_;
};

} // namespace vk
