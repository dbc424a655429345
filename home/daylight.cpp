#include "home/daylight.h"

#include "core/time_of_day.h"

namespace vk {

void Daylight::Check() {
    const Settings& s = n_.settings.values;
    const auto time1 = ParseTimeOfDay(s.Time1);
    const auto time2 = ParseTimeOfDay(s.Time2);
    if (!time1 || !time2) return;
    const bool day = IsDay(n_.clock.Now().MinuteOfDay(), *time1, *time2);
    const std::string& skin = day ? s.CurrentSkin : s.CurrentNTSkin;
    // A broken skin leaves another one in use; it is not tried again every second.
    if (skin != n_.state.CurrentSkinFile && skin != refused_ && !reloading_) {
        n_.state.CurrentSkinFile = skin;
        ReloadSkin();
        refused_ = n_.state.CurrentSkinFile == skin ? std::string() : skin;
    }
    if (s.AutoDimScreen && n_.setDimmer && n_.state.Dimmed == day) n_.setDimmer(!day);
}

void Daylight::ReloadSkin() {
    if (reloading_) return;
    reloading_ = true;
    n_.skin.LoadSkin();
    for (const char* name : {"velkorandum", "playlists", "playmp3", "playmovie"})
        if (const ScreenOperations* screen = n_.screens.Find(name)) screen->DoLayout();
    reloading_ = false;
}

} // namespace vk
