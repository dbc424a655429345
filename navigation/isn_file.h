// Which .isn skin is in use, and where its pictures lie.
#pragma once

#include "core/debug_log.h"
#include "navigation/isn_skin.h"
#include "skin/skin.h"

#include <string>

namespace vk {

/// What the map shows of, each of them on or off (a press).
struct IsnState {
    bool audio = false;    ///< something plays: there is room for its buttons
    bool external = false; ///< another program shows the map
};

/// The skin's own GPSMain.isn, else the one that all skins share.
class IsnFile {
  public:
    /// All of it outlives this object; `appDir` is the application directory.
    IsnFile(const SkinStore& skin, std::string appDir, const DebugLog& log)
        : skin_(skin), appDir_(std::move(appDir)), log_(log) {}

    /// Reads the .isn of the skin in use. Without any it is empty.
    void Load();
    const IsnSkin& data() const { return data_; }
    /// Full path of the picture of a state, "" when the .isn names none.
    std::string Picture(const IsnState& state, bool pressed) const;

  private:
    std::string Find() const;
    std::string Common(const std::string& file) const;

    const SkinStore& skin_;
    const std::string appDir_;
    const DebugLog& log_;
    IsnSkin data_;
};

} // namespace vk
