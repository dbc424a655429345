// What the navigation engine goes by, from one start of the system to the next.
#pragma once

#include "core/settings.h"
#include "platform/navigation_engine.h"

namespace vk {

/// The values of `EngineSettings` in settings.ini, but for those that others decide: the colours
/// (the hour), the pitch (`Use3Dmaps`) and the map (`GPSMap`).
class KeptSettings {
  public:
    /// `store` outlives this object.
    explicit KeptSettings(SettingsStore& store) : store_(store) {}

    /// Those that are decided elsewhere are "".
    EngineSettings Read() const;
    /// In one replacement of the file, when any of them is another one.
    void Write(const EngineSettings& values) const;

  private:
    SettingsStore& store_;
};

} // namespace vk
