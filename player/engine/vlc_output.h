// The sound through libVLC 3 (https://videolan.videolan.me/vlc-3.0/group__libvlc.html).
//
// libVLC's calls may wait for files and devices: a worker thread makes them all, and its callbacks
// only take notes. Callers leave wishes and the worker carries out the latest, so that a row of
// presses of "next" while a device is stuck costs one start and not ten.
//
// One media player plays all tracks, which keeps the sound device open from one to the next; the
// next file is parsed while this one plays, so that it starts from warm caches. Two media players
// that hand over to each other would need the device twice.
#pragma once

#include "player/engine/output.h"
#include "player/engine/vlc_handles.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace vk {

class VlcOutput : public Output {
  public:
    /// `sink` is called from other threads. Without `deviceFound` the sound goes nowhere, in real
    /// time.
    VlcOutput(std::function<void(const OutputEvent&)> sink, bool deviceFound);
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
        bool quit = false;
    };
    /// What libVLC's threads reported of the track that is open.
    struct Notes {
        bool playing = false;
        bool lengthChanged = false;
        bool sounded = false;
        bool ended = false;
        bool failed = false;
        bool parsed = false;
    };

    template<class Change> void Wish(Change change);
    void Work();
    void Carry(const Wishes& wishes);
    void Heed(const Notes& notes);
    void OpenLibrary();
    void Attach();
    static void OnVlcEvent(const libvlc_event_t* event, void* self);
    void Note(const libvlc_event_t& event);
    void StartTrack(const Wishes& wishes);
    void CarryPause();
    void PrepareMedia(const std::string& path);
    void ApplyVolume();
    void ApplyEqualiser(const Equaliser& equaliser);
    void Emit(OutputEvent::Kind kind, const TrackFacts& facts = {});

    const std::function<void(const OutputEvent&)> sink_;
    const bool deviceFound_;

    std::mutex mutex_;
    std::condition_variable changed_;
    // Under the mutex:
    Wishes wishes_;
    Notes notes_;
    bool dirty_ = false;
    std::uint32_t noted_ = 0; ///< the track that notes are about

    // The worker's own:
    VlcInstance library_;
    VlcPlayer player_;
    VlcMedia media_;
    VlcMedia prepared_;
    std::string preparedPath_;
    std::uint32_t preparedTrack_ = 0;
    std::uint32_t track_ = 0;
    std::string path_;
    bool started_ = false;
    bool paused_ = false;
    bool wantPaused_ = false;
    bool over_ = false; ///< its end was told
    std::optional<std::int64_t> seekMs_;
    int volume_ = 255;

    std::thread worker_;
};

} // namespace vk
