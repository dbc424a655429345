#include "navigation/kept_settings.h"

#include <array>
#include <vector>

namespace vk {

namespace {

// In the order of `EngineSettings`.
constexpr std::array Kept = {&setting::GPSZoom,     &setting::GPSOrientation, &setting::GPSFollow,
                             &setting::GPSAutoZoom, &setting::GPSProfile,     &setting::GPSUnits};

} // namespace

EngineSettings KeptSettings::Read() const {
    EngineSettings values;
    for (std::size_t at = 0; at < Kept.size(); ++at)
        values[at] = store_.Get(*Kept[at]);
    return values;
}

void KeptSettings::Write(const EngineSettings& values) const {
    const EngineSettings before = Read();
    std::vector<SettingChange> changes;
    for (std::size_t at = 0; at < Kept.size(); ++at)
        if (!values[at].empty() && values[at] != before[at])
            changes.emplace_back(*Kept[at], values[at]);
    if (!changes.empty()) store_.Write(changes);
}

} // namespace vk
