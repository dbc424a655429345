// Radio presets (presets.lst): "frequency:label", one a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The list's name, in the application directory.
inline constexpr const char* PresetsName = "presets.lst";

struct Preset {
    std::string frequency; ///< MHz, as it is written
    std::string label;     ///< UTF-8
};

/// The valid lines of a text: with a ":" and more than 3 characters long without the blanks around
/// them.
std::vector<Preset> ParsePresets(std::string_view text);

/// The text with the label of each line of that frequency replaced. "96.5" does not mean "96.55".
/// All lines end in CR LF afterwards; foreign ones are kept.
std::string WithPreset(std::string_view text, const std::string& frequency,
                       const std::string& label);

/// The text without the lines of that frequency; all others as `WithPreset` leaves them.
std::string WithoutPreset(std::string_view text, const std::string& frequency);

/// The presets of a file, none when it is missing. Throws `Error` when it cannot be read whole.
std::vector<Preset> ReadPresetFile(const std::string& path);

/// Both change the file in one step. They throw `Error` when it cannot be read whole or replaced;
/// it is then as it was.
void SavePreset(const std::string& path, const std::string& frequency, const std::string& label);
void DeleteFreq(const std::string& path, const std::string& frequency);

} // namespace vk
