#include "settings/vehicle_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vk {

namespace {

struct Named {
    std::int32_t value;
    const char* name;
};

// Seconds. None is so short that a line that is not connected leaves no time for the settings.
constexpr std::array Delays = {
    Named{0, "Disabled"},      Named{60, "1 Minute"},    Named{120, "2 Minutes"},
    Named{300, "5 Minutes"},   Named{600, "10 Minutes"}, Named{900, "15 Minutes"},
    Named{1800, "30 Minutes"}, Named{3600, "1 Hour"},    Named{7200, "2 Hour!"}};
constexpr std::array ShutDownModes = {Named{0, "Shut off the computer completely"},
                                      Named{1, "Go into Hibernation mode"},
                                      Named{2, "Go into Standby mode"}};

/// Steps through the names; a value between two of them, set by hand, goes to its neighbour.
template<std::size_t Count>
Row NamedRow(SettingsStore& store, const Setting<std::int32_t>& setting,
             const std::array<Named, Count>& names) {
    const auto place = [&store, &setting, &names] {
        const auto below =
            std::ranges::find_if(names, [now = store.values.*setting.kept](const Named& each) {
                return each.value >= now;
            });
        return static_cast<int>(
            below == names.end() ? Count - 1 : static_cast<std::size_t>(below - names.begin()));
    };
    Row row = StepRow(
        [&setting, &names, place] {
            return std::string(setting.caption) + ": " +
                   names[static_cast<std::size_t>(place())].name;
        },
        [&store, &setting, &names, place](int step) {
            const int to = std::clamp(place() + step, 0, static_cast<int>(Count) - 1);
            store.Set(setting, names[static_cast<std::size_t>(to)].value);
        });
    return Changes(std::move(row), setting);
}

Row PortRow(SettingsStore& store) {
    Row row = StepperRow(store, setting::accSensePort);
    row.text = [&store] {
        const std::string port = store.Text(setting::accSensePort);
        const bool path = port.starts_with('/');
        return std::string(setting::accSensePort.caption) + ": " +
               (port.empty() || port == "0" ? "Disabled"
                : path                      ? port
                                            : "COM" + port);
    };
    return row;
}

} // namespace

Page VehiclePage(SettingsStore& store, Dialogs& dialogs) {
    Page page = {
        .name = "settingsVehicle",
        .tab = "Vehicle",
        .rows = {PortRow(store), NamedRow(store, setting::accOffDelay, Delays),
                 TextRow(store, dialogs, setting::accSenseLine),
                 StepperRow(store, setting::accCrankFilter),
                 NamedRow(store, setting::ShutDownMode, ShutDownModes),
                 ToggleRow(store, setting::AutoDimScreen)},
        .heading = [] { return std::string("The ignition counts anew when you leave with Done"); }};
    for (Row& row : page.rows)
        row.width = Row::Whole;
    return page;
}

} // namespace vk
