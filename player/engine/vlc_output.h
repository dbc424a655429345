// The sound through libVLC 3 (https://videolan.videolan.me/vlc-3.0/group__libvlc.html).
//
// libVLC's calls may wait for files and devices: a worker thread makes them all, and its callbacks
// only take notes. Callers leave wishes and the worker carries out the latest, so that a row of
// presses of "next" while a device is stuck costs one start and not ten.
//
// From track to track. libVLC 3 drains one media before it opens the next: 70 to 160 ms of silence,
// with its list player as well. So where a sound server mixes streams there are two media players
// by turns: near the end of a track the other one opens the next file and waits paused; let go, it
// sounds within some 20 ms. A bare card may give the device only once: there one media player plays
// everything and keeps the device open, and the next file is at least parsed while this one plays.
#pragma once

#include "platform/linux/sound_device.h"
#include "player/engine/output.h"
#include "player/engine/vlc_deck.h"

#include <array>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace vk {

class VlcOutput : public Output {
  public:
    /// `sink` is called from other threads. `find` tells what there is to play on and is asked
    /// again every few seconds on a thread: devices and servers come late and go. Without one the
    /// sound goes nowhere, in real time.
    VlcOutput(std::function<void(const OutputEvent&)> sink, std::function<SoundDevice()> find);
    /// Waits for libVLC to let the device go.
    ~VlcOutput() override;

    void Play(std::uint32_t track, const std::string& path) override;
    void Prepare(std::uint32_t track, const std::string& path) override;
    void SetPaused(bool paused) override;
    void Seek(std::int64_t positionMs) override;
    void Stop() override;
    void SetVolume(int volume) override;
    void SetEqualiser(const Equaliser& equaliser) override;

  private:
    using Moment = std::chrono::steady_clock::time_point;

    /// What is wanted. Numbers of 0 are nothing.
    struct Wishes {
        std::uint32_t track = 0;
        std::string path;
        bool paused = false;
        std::optional<std::int64_t> seekMs;
        std::uint32_t preparedTrack = 0;
        std::string preparedPath;
        std::optional<int> volume;
        std::optional<Equaliser> equaliser;
        bool parsed = false; ///< the prepared media is
        bool quit = false;
    };

    template<class Change> void Wish(Change change);
    Wishes NextWishes();
    void Work();
    void OpenLibrary();
    void CloseLibrary();
    void LookForDevice();
    void OpenAgain();
    void Carry(const Wishes& wishes);
    void CarryPause();
    void CarrySeek();
    void StartTrack(const Wishes& wishes);
    bool Adopt();
    void PrepareMedia(const std::string& path);
    static void OnParsed(const libvlc_event_t* event, void* self);
    void Heed(const VlcNotes& notes);
    void TellTitle();
    void HeedEnd(const VlcNotes& notes);
    void HeedTime(const VlcNotes& notes);
    void HeedStandby(const VlcNotes& notes);
    void Disarm();
    std::optional<Moment> SwitchDue() const;
    Moment WakeAt() const;
    void SwitchWhenDue();
    void ApplyVolume();
    void ApplyEqualiser(const Equaliser& equaliser);
    void Emit(OutputEvent::Kind kind, const TrackFacts& facts = {});
    VlcDeck& Deck() { return *decks_[current_]; }
    VlcDeck& Standby() { return *decks_[1 - current_]; }

    const std::function<void(const OutputEvent&)> sink_;
    const std::function<SoundDevice()> find_;

    std::mutex mutex_;
    std::condition_variable changed_;
    Wishes wishes_;      ///< under the mutex
    bool dirty_ = false; ///< under the mutex: there is something to do

    // The worker's own:
    SoundDevice device_ = SoundDevice::None;
    Moment lookAt_; ///< when the device is looked for next
    Equaliser equaliser_;
    VlcInstance library_;
    std::array<std::unique_ptr<VlcDeck>, 2> decks_; ///< empty when libVLC could not be had
    std::size_t current_ = 0;
    VlcMedia prepared_;
    std::string preparedPath_;
    std::uint32_t preparedTrack_ = 0;
    std::string armedPath_; ///< what waits on the other deck; "" for nothing
    bool armedReady_ = false;
    std::uint32_t track_ = 0;
    std::string path_;
    bool started_ = false;
    bool paused_ = false;
    bool wantPaused_ = false;
    bool over_ = false; ///< its end was told
    std::optional<std::int64_t> seekMs_;
    std::optional<Moment> endsAt_; ///< by the latest report of the time
    Moment unsettledUntil_;        ///< reports are of before a seek or a pause
    int volume_ = 255;
    bool volumeApplied_ = false; ///< to the stream that sounds
    bool certain_ = false;       ///< the length of the track

    std::thread worker_;
};

} // namespace vk
