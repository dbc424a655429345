// What is known of one setting, whoever uses it.
#pragma once

#include "core/ini_file.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

namespace vk {

/// Which numbers count as they are read; any other is taken for `otherwise`.
struct AcceptedNumbers {
    double low = std::numeric_limits<double>::lowest();
    double high = std::numeric_limits<double>::max();
    bool zero = true;
    double otherwise = 0; ///< also the value before the settings are loaded

    double Of(double value) const {
        const bool taken = value >= low && value <= high && (zero || value != 0);
        return taken ? value : otherwise;
    }
};

/// What the pages keep a number to.
struct SettingLimits {
    double low = 0, high = 0, step = 1;
    const char* unit = "";
};

/// A row of the table of settings. Texts are those of settings.ini.
struct SettingRow {
    const char* section;
    const char* name;
    const char* key = nullptr;       ///< where the file has another name for it
    const char* spelling = nullptr;  ///< the key's letters in a new file, where they differ
    const char* initial = nullptr;   ///< the value in a new file; null: not in it
    const char* whenEmpty = nullptr; ///< written at a start that finds it empty
    const char* alsoEmpty = nullptr; ///< a text that counts as none
    const char* otherwise = nullptr; ///< read for none
    AcceptedNumbers accepted = {};
    std::optional<IniType> readAs = {}; ///< where that is not its type
    SettingLimits limits = {};
    const char* caption = ""; ///< on the pages

    const char* Key() const { return key ? key : name; }
    bool Empty(const std::string& text) const {
        return text.empty() || (alsoEmpty && text == alsoEmpty);
    }
};

template<class T> constexpr IniType IniTypeOf() {
    if constexpr (std::is_same_v<T, bool>)
        return IniType::Boolean;
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return IniType::Long;
    else if constexpr (std::is_same_v<T, std::int16_t>)
        return IniType::Integer;
    else if constexpr (std::is_same_v<T, double>)
        return IniType::Double;
    else
        return IniType::String;
}

/// A value before the settings are loaded.
template<class T> T StartValue(const SettingRow& row) {
    if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, bool>)
        return T();
    else
        return static_cast<T>(row.accepted.otherwise);
}

/// A value as it was read, corrected by its row.
template<class T> T ValueOf(const SettingRow& row, const IniValue& read) {
    if constexpr (std::is_same_v<T, bool>) {
        return read.Bool();
    } else if constexpr (std::is_same_v<T, std::string>) {
        std::string text = read.Text();
        return row.otherwise && row.Empty(text) ? std::string(row.otherwise) : text;
    } else {
        const double number = std::is_same_v<T, std::int16_t> ? read.Integer()
                              : std::is_same_v<T, double>     ? read.Double()
                                                              : read.Long();
        return static_cast<T>(row.accepted.Of(number));
    }
}

/// The next multiple of the step in a direction (-1, 1), within the limits.
double Stepped(double value, int direction, const SettingLimits& limits);

/// A value as it is written. Numbers have a point whatever the locale, as it is read everywhere.
std::string SettingText(bool value);
std::string SettingText(std::int16_t value);
std::string SettingText(std::int32_t value);
std::string SettingText(double value);
inline std::string SettingText(std::string value) {
    return value;
}

} // namespace vk
