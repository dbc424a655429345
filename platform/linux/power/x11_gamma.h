// Gamma ramps by RandR (https://www.x.org/releases/X11R7.7/doc/randrproto/randrproto.txt).
#pragma once

#include "platform/gamma.h"

#include <xcb/randr.h>

#include <map>
#include <string>

namespace vk {

/// A ramp belongs to a controller (CRTC), whichever outputs that drives just now.
class X11Gamma : public Gamma {
  public:
    /// `connection` outlives this object.
    explicit X11Gamma(xcb_connection_t* connection);
    std::vector<DisplayRamp> Read() const override;
    bool Write(const DisplayRamp& ramp) override;

  private:
    std::vector<xcb_randr_crtc_t> Controllers() const;

    xcb_connection_t* const connection_;
    bool there_ = false; ///< the display has the extension
};

} // namespace vk
