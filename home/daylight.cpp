#include "home/daylight.h"

#include "core/time_of_day.h"

#include <utility>

namespace vk {

void Daylight::Check() {
    const Settings& s = base_.settings.values;
    const auto time1 = ParseTimeOfDay(s.Time1);
    const auto time2 = ParseTimeOfDay(s.Time2);
    if (!time1 || !time2) return;
    const bool day = IsDay(base_.clock.Now().MinuteOfDay(), *time1, *time2);
    const std::string& skin = day ? s.CurrentSkin : s.CurrentNTSkin;
    // A broken skin leaves another one in use; it is not tried again every second.
    if (skin != base_.state.CurrentSkinFile && skin != skin_.Refused() && !reloading_) {
        base_.state.CurrentSkinFile = skin;
        ReloadSkin();
    }
    // Between the changes the driver may dim by hand; a day that was not seen to begin is none.
    const bool changed = std::exchange(day_, day).value_or(true) != day;
    if (changed && s.AutoDimScreen && setDimmer && base_.state.Dimmed == day) setDimmer(!day);
}

void Daylight::ReloadSkin() {
    if (reloading_) return;
    reloading_ = true;
    skin_.LoadSkin();
    base_.screens.LayOut();
    reloading_ = false;
}

} // namespace vk
