// The map's screen, as its logic asks for it.
#pragma once

#include "platform/foreign_windows.h"

#include <string>

namespace vk {

/// The texts of the screen, under the names that skins have for them; a skin may lack any.
enum class GPSLabel {
    Volume,  ///< `lbGPSVolume`
    Speed,   ///< `lbGPSSpeed`
    Heading, ///< `lbGPSHeading`
    Status,  ///< `lbGPSStatus`
    Title,   ///< of what plays
    Artist
};

/// Texts are UTF-8.
class GPSView {
  public:
    virtual ~GPSView() = default;
    virtual void SetLabel(GPSLabel label, const std::string& text) = 0;
    /// The volume in the place of the status group, or that again.
    virtual void ShowVolume(bool shown) = 0;
    /// `picMsgBar` and its `lblMessage`; an empty text hides it.
    virtual void ShowMessage(const std::string& text) = 0;
    /// Why there is no map, in its place; "" when there is one.
    virtual void ShowComplaint(const std::string& text) = 0;
    /// `picGPSList` in the place of the map.
    virtual void ShowList(bool shown) = 0;
    virtual void ReDrawList() = 0;
    /// Something plays, or nothing does: the skin has a picture and a place of the map for each.
    virtual void SetAudio(bool plays) = 0;
    /// The place of the map, pixels.
    virtual WindowArea MapArea() const = 0;
    /// Brings the screen to the front.
    virtual void ShowAtFront() = 0;
};

} // namespace vk
