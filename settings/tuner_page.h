// The page for the two tuners.
#pragma once

#include "settings/pages/page.h"
#include "tuners/fm/fm_tuner.h"
#include "tuners/xm/frm_xm_ctl.h"

#include <functional>
#include <vector>

namespace vk {

/// All of it outlives the page.
struct TunerPageNeeds {
    Base& base;
    FMTuner& fm;
    frmXMCtl& xm;
    /// The recording devices of the machine, by what opens them and by name.
    std::function<std::vector<Option>()> captureDevices;
};

/// `settingsFMXM`: each change acts at once.
Page TunerPage(const TunerPageNeeds& needs);

} // namespace vk
