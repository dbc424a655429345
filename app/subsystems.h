// The subsystems that this system has; a new one is a line here.
#pragma once

#include "app/modules/browser_module.h"
#include "app/modules/home_module.h"
#include "app/modules/hosting_module.h"
#include "app/modules/input_module.h"
#include "app/modules/library_module.h"
#include "app/modules/navigation_module.h"
#include "app/modules/playback_module.h"
#include "app/modules/settings_module.h"
#include "app/modules/sync_module.h"
#include "app/modules/tuners_module.h"
#include "app/modules/vehicle_module.h"
#include "app/modules/video_module.h"

namespace vk {

/// Each stands on those above it.
struct Subsystems {
    explicit Subsystems(Host& theHost) : host(theHost) {}

    Host& host;
    InputModule input{host};
    LibraryModule library{host};
    PlaybackModule playback{host, library};
    NavigationModule navigation{host, library, playback};
    TunersModule tuners{host, library, playback};
    VideoModule video{host, library, navigation, playback};
    HostingModule hosting{host, library, input, playback};
    BrowserModule browser{host, library, playback, hosting};
    SyncModule sync{host, library};
    SettingsModule settings{host, library, input, playback};
    VehicleModule vehicle{host, playback};
    HomeModule home{host, {library, playback, navigation, input, settings, vehicle, tuners}};
};

} // namespace vk
