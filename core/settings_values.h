// The settings that are held in memory, and all settings by name, both made from their table.
#pragma once

#include "core/setting.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace vk {

inline constexpr char DefaultSkin[] = "Torque.skn";
// The root of the drive, which exists everywhere and lies outside every media folder.
#ifdef _WIN32
inline constexpr char RootFolder[] = "C:\\";
#else
inline constexpr char RootFolder[] = "/";
#endif

/// The settings that `LoadSettings` keeps in memory, each in a member of its name: see the table.
/// Texts are as they stand in the file.
struct Settings {
#define KEPT(type, section_, name_, ...)                                                           \
    type name_ = StartValue<type>({.section = section_, .name = #name_, __VA_ARGS__});
#define READ(...)
#include "core/settings_table.inc"
#undef KEPT
#undef READ

    /// Volume steps of a wheel tick, no more than span the scale.
    std::int32_t WheelSteps() const {
        return std::min(MouseIncrement, 50);
    }
};

/// One setting, by which code reads and writes it.
template<class T> struct Setting : SettingRow {
    T Settings::*kept = nullptr; ///< where it is held in memory, if it is
};

/// All settings by their names.
namespace setting {

#define KEPT(type, section_, name_, ...)                                                           \
    inline constexpr Setting<type> name_{{.section = section_, .name = #name_, __VA_ARGS__},       \
                                         &Settings::name_};
#define READ(type, section_, name_, ...)                                                           \
    inline constexpr Setting<type> name_{{.section = section_, .name = #name_, __VA_ARGS__}};
#include "core/settings_table.inc"
#undef KEPT
#undef READ

} // namespace setting

/// Calls `visit` with every setting, in the order of the table.
template<class Visit> void ForEachSetting(Visit visit) {
#define KEPT(type, section, name, ...) visit(setting::name);
#define READ(type, section, name, ...) visit(setting::name);
#include "core/settings_table.inc"
#undef KEPT
#undef READ
}

} // namespace vk
