#include "core/settings.h"

#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vk {

namespace {

// No exponent, which would not be read.
std::string NumberText(double value) {
    std::array<char, 512> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return std::string(text.data(), end);
}

} // namespace

double Stepped(double value, int direction, const SettingLimits& limits) {
    const double steps = value / limits.step;
    const double next = direction > 0 ? std::floor(steps) + 1 : std::ceil(steps) - 1;
    return std::clamp(next * limits.step, limits.low, limits.high);
}

std::string SettingText(bool value) {
    return value ? "true" : "false";
}

std::string SettingText(std::int16_t value) {
    return NumberText(value);
}

std::string SettingText(std::int32_t value) {
    return NumberText(value);
}

std::string SettingText(double value) {
    return NumberText(value);
}

std::string SettingsStore::File(std::string_view name) const {
    return JoinPath(StateDir(), std::string(name));
}

std::string SettingsStore::Shipped(std::string_view name) const {
    return JoinPath(AppDir(), std::string(name));
}

void SettingsStore::LoadSettings() {
    ForEachSetting([this](const auto& setting) {
        if (setting.kept) values.*setting.kept = Get(setting);
    });
}

void SettingsStore::FillEmptySettings() {
    std::vector<IniKey> filled;
    ForEachSetting([&](const SettingRow& row) {
        if (row.whenEmpty && row.Empty(Text(row)))
            filled.push_back({row.section, row.Key(), row.whenEmpty});
    });
    ini_.WriteKeys(SettingsFile(), filled);
}

std::int16_t SettingsStore::Write(const std::vector<SettingChange>& changes) {
    std::vector<IniKey> keys;
    for (const SettingChange& change : changes) {
        keys.push_back(change.key);
        if (change.keep) change.keep(values);
    }
    return ini_.WriteKeys(SettingsFile(), keys);
}

std::string SettingsStore::Read(std::string_view section, std::string_view key) {
    return ini_.ReadText(SettingsFile(), section, key);
}

IniValue SettingsStore::Read(std::string_view section, std::string_view key, IniType type) {
    return ini_.ReadINI(SettingsFile(), section, key, type);
}

std::int16_t SettingsStore::Write(std::string_view section, std::string_view key,
                                  std::string_view value) {
    return ini_.WriteINI(SettingsFile(), section, key, value);
}

} // namespace vk
