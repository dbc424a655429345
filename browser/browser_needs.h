// What the browser works with.
#pragma once

#include "core/base.h"
#include "hosting/apps_list.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "library/catalogue.h"
#include "library/channels/channel_table.h"
#include "library/media_tags.h"
#include "platform/paths.h"
#include "playback/audio_state.h"
#include "playback/loudness.h"
#include "playback/transport.h"
#include "playback/video_state.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// What is known of the media. All of it outlives the browser.
struct BrowsedLibrary {
    const MediaTags& tags;
    const MediaExtensions& extensions;
    Catalogue* catalogue = nullptr;         ///< null: none
    const ChannelTable* channels = nullptr; ///< null: no satellite channels
};

/// What the browser hands over to. All of it outlives the browser.
struct BrowserPlayers {
    AudioState& audio;
    VideoState& video;
    Loudness& loudness;
    Transport& transport;
    /// Tells whether the tuner of that `PlayMode` is there; empty: none is.
    std::function<bool(std::int32_t playMode)> HasTuner = {};
};

/// The programs of the user's list; all empty where none can be started.
struct BrowserPrograms {
    std::function<std::vector<std::string>()> Loaded = {}; ///< the names of those that run
    /// The picture of a program, by its file; "" without one.
    std::function<std::string(const std::string& program)> Icon = {};
    /// Starts or resumes one and brings it to the front; else why it did not come, for the user.
    /// Events run meanwhile.
    std::function<std::string(const ListedApp&)> Open = {};
};

/// All of it outlives the browser.
struct BrowserNeeds {
    Base& base;
    BrowserState& state;
    const KeyMap& keys;
    BrowsedLibrary library;
    BrowserPlayers players;
    BrowserPrograms programs = {};

    const Settings& Options() const { return base.settings.values; }
    std::string MediaDir() const { return WithoutTrailingSeparator(Options().MediaDir); }
    bool CatalogueOnLine() const {
        return library.catalogue && library.catalogue->State() == DBStateValue::OnLine;
    }
};

} // namespace vk
