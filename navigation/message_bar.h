// The messages on the map, each for some seconds.
#pragma once

#include "navigation/gps_view.h"

#include <string>

namespace vk {

class MessageBar {
  public:
    /// How long a message stays that the driver has to read; seconds.
    static constexpr int ReadSeconds = 3;
    static constexpr int ShortSeconds = 1;

    /// `view` outlives this object.
    explicit MessageBar(GPSView& view) : view_(view) {}

    void Say(const std::string& text, int seconds = ReadSeconds);
    /// Once a second: takes an old one away.
    void Tick();
    void Clear();

  private:
    GPSView& view_;
    int messageTicks_ = -1; ///< seconds that it stays up; negative: there is none
};

} // namespace vk
