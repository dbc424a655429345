// The touch buttons of a screen, for those who have keys or a remote alone.
#pragma once

#include <string>

namespace vk {

/// One of them can be marked, and is then worked as by a finger.
class ScreenButtons {
  public:
    virtual ~ScreenButtons() = default;
    /// False while they are out of reach, as when a text is asked for in their place.
    virtual bool Offered() const = 0;
    /// Marks the one that was marked last, at first one in the middle; false when there is none.
    virtual bool Enter() = 0;
    /// Nothing is marked any more.
    virtual void Leave() = 0;
    /// Is one marked? The mark goes with its screen.
    virtual bool Marked() const = 0;
    /// Marks the next one in a direction (-1, 0, 1 each), if there is one.
    virtual void Move(int dx, int dy) = 0;
    /// Presses the marked one, and lets it go. Each is a command of its own, if it is one.
    virtual void Press() = 0;
    virtual void Release() = 0;
    /// Shows a text on the screen for some seconds.
    virtual void Say(const std::string& text) = 0;
};

} // namespace vk
