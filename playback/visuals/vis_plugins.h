// The visualisations that there are, and which of them is chosen.
#pragma once

#include "core/settings.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vk {

/// What a plug-in's file says of it.
struct VisPlugin {
    std::string name;  ///< as it is called, and the title of its window
    std::string scene; ///< what the drawing program draws; "" where the file is another program's
};

/// Where the plug-ins of an application directory lie.
std::string VisFolder(const std::string& appDir);

/// `file` is a name in `VisFolder`. Its section "visualisation" has `name` and `scene`. Without
/// them, as in a library of another program, it is called as the file.
VisPlugin ReadVisPlugin(const std::string& appDir, const std::string& file);

/// The lines of VNFO.dat, a plug-in's file each: at most `VisListLimit`; empty ones, and bytes that
/// are no text, are left out. Without the file there are none.
std::vector<std::string> ReadVisList(const std::string& appDir);
inline constexpr std::size_t VisListLimit = 200;

/// The plug-ins of `VisFolder`, listed or not, by name.
std::vector<std::string> VisFiles(const std::string& appDir);

/// `visplugin_name` of winamp.ini and `VisWindowName`, which go together.
class VisChoice {
  public:
    /// `settings` outlives this object.
    explicit VisChoice(SettingsStore& settings) : settings_(settings) {}

    /// The file of the one that is chosen.
    std::string File() const;
    /// What it is called.
    std::string Name() const { return settings_.values.VisWindowName; }
    /// Chooses a file of `VisFolder`; false when that cannot be kept.
    bool Choose(const std::string& file);
    /// Goes `step` on in the list, round and round; false when it holds nothing else.
    bool Step(int step);

  private:
    SettingsStore& settings_;
};

} // namespace vk
