// What a source of the audio player is made from.
#pragma once

#include "core/base.h"
#include "playback/audio/clock_line.h"
#include "playback/audio/cover_art.h"
#include "playback/audio/player_source.h"
#include "playback/audio/player_view.h"
#include "playback/audio/shuffle.h"
#include "playback/audio/track_rows.h"
#include "playback/audio_state.h"
#include "playback/loudness.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace vk {

/// The player's parts; all of it outlives the sources.
struct SourceContext {
    Base& base;
    AudioState& audio;
    Loudness& loudness;
    PlayerView& view;
    TrackRows& rows;
    CoverArt& cover;
    ClockLine& clockLine; ///< also for what the user is to be told
    Shuffle& shuffle;
};

using SourceMaker = std::function<std::unique_ptr<PlayerSource>(const SourceContext&)>;

/// By `PlayMode`: the subsystem of a source adds its own before the player's screen is made.
using SourceMakers = std::map<std::int32_t, SourceMaker>;

} // namespace vk
