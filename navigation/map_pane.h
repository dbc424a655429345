// What shows the map on the GPS screen: the navigation engine, or another program.
#pragma once

#include "navigation/map_window.h"

#include <functional>
#include <string>

namespace vk {

class MapPane {
  public:
    virtual ~MapPane() = default;
    /// The screen has come to the front: the map is to come, too. It may wait with events running.
    virtual void Enter() = 0;
    /// The screen is left.
    virtual void Leave() = 0;
    /// Every second while the screen is in front; false when the map has gone for good and the
    /// screen is to be left.
    virtual bool EverySecond() { return true; }
    /// Where it is shown.
    virtual MapWindow& Window() = 0;
    /// Why there is no map to look at, for the driver; "" when there is one.
    virtual std::string Complaint() const = 0;

    /// The window or the complaint have changed.
    std::function<void()> onChanged;
};

} // namespace vk
