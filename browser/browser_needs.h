// What the browser works with.
#pragma once

#include "core/app_state.h"
#include "core/commands.h"
#include "core/error_report.h"
#include "core/pump.h"
#include "core/screens.h"
#include "core/settings.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "library/catalogue.h"
#include "library/channels/channel_table.h"
#include "library/media_tags.h"
#include "platform/clock.h"
#include "platform/locale_info.h"
#include "platform/paths.h"
#include "platform/volumes.h"
#include "playback/audio_state.h"
#include "playback/video_state.h"

#include <functional>

namespace vk {

/// All of it outlives the browser.
struct BrowserNeeds {
    SettingsStore& settings;
    AppState& app;
    BrowserState& state;
    AudioState& audio;
    VideoState& video;
    Screens& screens;
    Clock& clock;
    Pump& pump;
    Commands& commands;
    Volumes& volumes;
    const LocaleInfo& locale;
    ErrorReport& report;
    const MediaTags& tags;
    const MediaExtensions& extensions;
    const KeyMap& keys;
    Catalogue* catalogue = nullptr;         ///< null: none
    std::function<void()> StopAudio = {};   ///< silences the audio player process before a film
    const ChannelTable* channels = nullptr; ///< null: no satellite channels
    /// Tells whether the tuner of that `PlayMode` is there; empty: none is.
    std::function<bool(std::int32_t playMode)> HasTuner = {};

    std::string MediaDir() const { return WithoutTrailingSeparator(settings.values.MediaDir); }
    bool CatalogueOnLine() const { return catalogue && catalogue->State() == DBStateValue::OnLine; }
};

} // namespace vk
