// The page for navigation: the engine, or another program.
#pragma once

#include "core/base.h"
#include "platform/installed_programs.h"
#include "platform/serial_list.h"
#include "settings/pages/page.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// All of it outlives the page.
struct GPSPageNeeds {
    Base& base;
    std::function<std::string()> engine; ///< its version, "" for none
    std::function<SerialList()> serialPorts;
    std::function<std::vector<InstalledProgram>()> installed; ///< offered beside the files
    std::vector<Row> mapRows = {};                            ///< how a map is made
};

/// `settingsGPS`: what shows the map, how, and the program's parameters are written when the page
/// is left; the rest at once.
Page GPSPage(const GPSPageNeeds& needs);

} // namespace vk
