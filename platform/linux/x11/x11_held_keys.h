// Keys of an X11 display that come to us whichever program is in front.
#pragma once

#include "platform/linux/x11/x11_kept_touches.h"
#include "platform/linux/x11/x11_properties.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

namespace vk {

/// A program in front that has taken the whole keyboard gets them as well: they are told here when
/// they are let go then (X Input 2.1, raw events).
class X11HeldKeys {
  public:
    using Tell = std::function<void(int key, bool down)>;
    /// `x` outlives this object; `tell` is given virtual-key codes. While keys are held `kept` is
    /// told as well.
    X11HeldKeys(const X11Properties& x, Tell tell, X11KeptTouches::Tell kept)
        : x_(x), tell_(std::move(tell)), touches_(x, std::move(kept)) {}
    ~X11HeldKeys() { Hold({}); }
    X11HeldKeys(const X11HeldKeys&) = delete;
    X11HeldKeys& operator=(const X11HeldKeys&) = delete;

    /// These and no others, by their virtual-key codes.
    void Hold(const std::vector<int>& keys);
    /// To be shown every event of the connection; true when nobody else needs it.
    bool Handle(const xcb_generic_event_t& event);

  private:
    void Grab(bool on) const;
    void SelectRaw(bool on);
    bool HandleKey(const xcb_generic_event_t& event);
    bool HandleRaw(const xcb_generic_event_t& event);
    void Released(xcb_keycode_t code, int key);

    const X11Properties& x_;
    Tell tell_;
    X11KeptTouches touches_;
    std::map<xcb_keycode_t, int> held_;
    std::set<xcb_keycode_t> modifiers_, modifiersDown_;
    std::set<xcb_keycode_t> told_;   ///< are down and have come to us
    std::set<xcb_keycode_t> untold_; ///< are down without a modifier and have not
    std::uint8_t extension_ = 0;     ///< X Input's number, 0 without it
};

} // namespace vk
