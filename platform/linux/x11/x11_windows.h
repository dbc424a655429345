// Windows of other programs on an X11 display, with a window manager or without one.
#pragma once

#include "platform/foreign_windows.h"
#include "platform/linux/x11/x11_held_keys.h"
#include "platform/linux/x11/x11_properties.h"
#include "platform/linux/x11/x11_shields.h"

#include <map>

namespace vk {

class X11Windows : public ForeignWindows {
  public:
    /// `connection` is the one that our own windows were made on, else the display would destroy
    /// adopted windows with them; it outlives this object.
    explicit X11Windows(xcb_connection_t* connection);
    ~X11Windows() override;
    std::vector<ForeignWindow> List() const override;
    bool Exists(WindowHandle window) const override;
    bool Adopt(WindowHandle window, WindowHandle host, const WindowArea& area) override;
    void Return(WindowHandle window) override;
    void Shield(WindowHandle window) override;
    void Place(WindowHandle window, const WindowArea& area) override;
    void Show(WindowHandle window, bool shown) override;
    void Raise(WindowHandle window) override;
    void SetTopmost(WindowHandle window, bool on) override;
    void Maximize(WindowHandle window) override;
    void SetFrame(WindowHandle window, bool on) override;
    void Focus(WindowHandle window) override;
    void Close(WindowHandle window) override;
    WindowHandle Inside(WindowHandle window, const std::string& windowClass,
                        const std::string& title) const override;
    void PostMouse(WindowHandle window, bool down) override;
    void PostControl(WindowHandle window, char letter) override;
    void HoldKeys(const std::vector<int>& keys) override { keys_.Hold(keys); }
    void FreeInput(WindowHandle window) override;

    /// To be shown every event of the connection; true when nobody else needs it.
    bool Handle(const xcb_generic_event_t& event);

  private:
    ForeignWindow Describe(xcb_window_t window) const;
    bool IsProgramWindow(xcb_window_t window) const;
    bool IsOrdinary(xcb_window_t window) const;
    bool TellsOfWindows(const xcb_generic_event_t& event) const;
    bool IsMinimized(xcb_window_t window) const;
    void Minimize(xcb_window_t window) const;
    void Restore(xcb_window_t window) const;
    void Withdraw(xcb_window_t window) const;
    void Put(xcb_window_t window) const;
    void SeeTo(xcb_window_t window, bool asWished);

    X11Properties x_;
    X11HeldKeys keys_;
    X11Shields shields_{x_};
    struct Adopted {
        xcb_window_t host;
        WindowArea area;
        int corrections; ///< that may still be made
        bool shown = true;
    };
    std::map<xcb_window_t, Adopted> adopted_;
};

} // namespace vk
