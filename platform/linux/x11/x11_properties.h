// Properties, atoms and messages of X11 windows (ICCCM,
// https://www.x.org/releases/X11R7.6/doc/xorg-docs/specs/ICCCM/icccm.html; EWMH,
// https://specifications.freedesktop.org/wm-spec/1.5/).
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// What the library hands over, to be freed.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template<class Type> using XReply = std::unique_ptr<Type, FreeReply>;

/// One display. A window that has gone answers with nothing.
class X11Properties {
  public:
    /// `connection` outlives this object.
    explicit X11Properties(xcb_connection_t* connection);
    xcb_connection_t* connection() const { return connection_; }
    xcb_window_t Root() const { return root_; }
    xcb_atom_t Atom(const std::string& name) const;
    std::vector<std::uint32_t> Numbers(xcb_window_t window, const std::string& property) const;
    std::string Text(xcb_window_t window, const std::string& property) const;
    void Set(xcb_window_t window, const std::string& property, const std::string& type,
             const std::vector<std::uint32_t>& values) const;
    /// A message about `window` to its program or, with `manager`, to the window manager.
    void Tell(xcb_window_t window, const std::string& message,
              const std::vector<std::uint32_t>& data, bool manager) const;
    /// An event of the program's own devices, as if its user had made it.
    template<class Event> void Post(xcb_window_t window, const Event& event) const {
        xcb_send_event(connection_, 0, window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
        xcb_flush(connection_);
    }
    /// The process that it belongs to, by what it says itself, else by what the display knows of
    /// its connection; 0 when neither tells.
    long Process(xcb_window_t window) const;
    /// True while a window manager runs.
    bool Managed() const;
    /// Its children, the lowest first.
    std::vector<xcb_window_t> Children(xcb_window_t window) const;
    std::optional<xcb_window_t> Parent(xcb_window_t window) const;

  private:
    xcb_connection_t* const connection_;
    xcb_window_t root_ = 0;
    mutable std::map<std::string, xcb_atom_t> atoms_;
};

} // namespace vk
