// Touches of an X11 display that a program keeps from our windows.
#pragma once

#include "platform/linux/x11/x11_properties.h"

#include <xcb/xinput.h>

#include <functional>

namespace vk {

/// A program that has taken the pointer gets every touch, wherever it lies. The display tells of
/// each all the same (X Input 2.1, raw events); what comes to a window of ours comes by itself.
class X11KeptTouches {
  public:
    /// What is to be told of the root.
    static constexpr std::uint32_t Events =
        XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;

    /// Told with the root's child that the touch went down and up on, and its place on the screen.
    using Tell = std::function<void(xcb_window_t window, int x, int y)>;
    /// `x` outlives this object.
    X11KeptTouches(const X11Properties& x, Tell tell) : x_(x), tell_(std::move(tell)) {}

    /// To be shown every event of the connection; true when nobody else needs it.
    bool Handle(const xcb_generic_event_t& event);

  private:
    bool HandleInput(const xcb_ge_generic_event_t& event);
    void Down();
    void Up();

    const X11Properties& x_;
    Tell tell_;
    xcb_window_t touched_ = XCB_WINDOW_NONE; ///< went down on it, and nothing came to us
};

} // namespace vk
