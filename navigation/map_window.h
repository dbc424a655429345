// The window of the map, which belongs to another program, as a part of our screen.
#pragma once

#include "platform/foreign_windows.h"
#include "skin/surfaces.h"

#include <functional>

namespace vk {

/// Seen only while its screen is in front, nothing of that screen stands in its place and no dialog
/// is open: the display puts it over all that we draw.
class MapWindow {
  public:
    struct Needs {
        ForeignWindows* windows; ///< null on a display whose windows cannot be taken
        Surfaces& surfaces;
        std::function<WindowHandle()> host; ///< our window, which it becomes a part of
    };
    /// What is needed outlives this object.
    explicit MapWindow(Needs needs) : n_(std::move(needs)) {}
    ~MapWindow() { n_.surfaces.Remove(Owner); }
    MapWindow(const MapWindow&) = delete;
    MapWindow& operator=(const MapWindow&) = delete;

    /// Takes a window in; 0, and one that has gone, is none. The one before is its program's to
    /// close. `shielded`: it is only looked at, keys and touches are ours.
    void Take(WindowHandle window, bool shielded = false);
    /// Gives it back to the desktop.
    void Return();
    /// Pixels of our window.
    void Place(const WindowArea& area);
    /// Its screen comes to the front, and goes.
    void SetFront(bool front);
    /// Something else stands in its place: a list, the keyboard, a complaint.
    void Cover(bool covered);

    WindowHandle Handle() const { return window_; }
    bool Exists() const { return window_ != 0 && n_.windows->Exists(window_); }
    /// Whether this display lets windows be taken in.
    bool CanTake() const { return n_.windows; }
    const WindowArea& Area() const { return area_; }

  private:
    static constexpr const char* Owner = "frmGPS";
    void Update();

    Needs n_;
    WindowHandle window_ = 0;
    WindowArea area_;
    bool front_ = false, covered_ = false, dialog_ = false;
};

} // namespace vk
