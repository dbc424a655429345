// What the browser's logic asks of its screen.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// The buttons whose pictures follow the state.
enum class BrowserButton {
    PlayPause,    ///< `Image6`
    ToolFrame,    ///< `Image7`
    Recurse,      ///< `Image12`
    Applications, ///< `Image14`
    Radio         ///< `Image15`
};

/// The screen as the logic sees it. Texts are UTF-8; pictures are file names of the skin's folder,
/// and a missing file leaves the old picture.
class BrowserView {
  public:
    virtual ~BrowserView() = default;
    /// The heading, `lblCurrentFolderStatus`.
    virtual void SetTitle(const std::string& text) = 0;
    /// The label over the list, `lbLoading`, drawn at once.
    virtual void ShowLoading(const std::string& text) = 0;
    virtual void HideLoading() = 0;
    /// The clock label, `ClockBar`.
    virtual void SetClock(const std::string& text) = 0;
    virtual void SetButton(BrowserButton button, const std::string& picture) = 0;
    /// Slides the frame with the rarer buttons open or shut; nothing when it is so already.
    virtual void ShowToolFrame(bool open) = 0;
    /// Draws the list anew from its model.
    virtual void ReDrawList() = 0;
    /// The same for the right-hand list of the mode that builds a list.
    virtual void ReDrawRightList() = 0;
    /// Lays the screen out for a mode of the browser; nothing when it is so already.
    virtual void LayOut(std::int16_t listMode) = 0;
    /// Shows which of the two lists the keys work.
    virtual void ShowFocus(bool right) = 0;
    /// Brings the screen to the front.
    virtual void ShowAtFront() = 0;
};

} // namespace vk
