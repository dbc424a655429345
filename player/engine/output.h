// The sound: what the engine asks of whatever plays one file after another.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vk {

/// What is known of a track; 0 is unknown.
struct TrackFacts {
    std::int64_t lengthMs = 0;
    int bitRate = 0; ///< kilobits per second
};

/// Gains in dB, -20 to 20; the bands are those of the output's own ten-band equaliser.
struct Equaliser {
    bool on = false;
    float preamp = 0;
    std::array<float, 10> bands{};
};

/// What happened to a track. Events about a track that is no longer the wanted one may still come
/// and are told by `track`.
struct OutputEvent {
    enum Kind {
        Started,  ///< it sounds; `facts` are as complete as they will be before playing on
        Facts,    ///< `facts` became known or better
        Position, ///< `positionMs` now
        Ended,    ///< played to its end
        Failed,   ///< missing, or nothing in it that can be played
        Title,    ///< a stream says what plays: `text`
        Prepared  ///< `facts` of the file of the latest `Prepare`, whose number is `track`
    };
    Kind kind = Started;
    std::uint32_t track = 0;
    std::int64_t positionMs = 0;
    TrackFacts facts;
    std::string text = {}; ///< UTF-8
};

/// Every call returns at once; the work is done elsewhere, and only the latest wish counts.
class Output {
  public:
    virtual ~Output() = default;
    /// Plays a file from its beginning in the place of what plays; `track` names it in events.
    virtual void Play(std::uint32_t track, const std::string& path) = 0;
    /// This file is likely to come next, under this number.
    virtual void Prepare(std::uint32_t track, const std::string& path) = 0;
    virtual void SetPaused(bool paused) = 0;
    virtual void Seek(std::int64_t positionMs) = 0;
    virtual void Stop() = 0;
    /// 0 to 255, linear in amplitude.
    virtual void SetVolume(int volume) = 0;
    virtual void SetEqualiser(const Equaliser& equaliser) = 0;
};

} // namespace vk
