// What lies over the screens, from the back to the front: films, windows of other programs, bars;
// and over all of these the dialogs.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// Between the screens and the dialogs, which take their places themselves.
enum class Layer { Film, Program, Bar };

/// One thing that is shown, as its owner hands it over.
struct Surface {
    Layer layer = Layer::Film;
    /// Brings it in front of everything else in the window.
    std::function<void()> raise;
    /// Hides it or shows it again. Needed of programs alone: the display puts their windows over
    /// all that we draw, so that they step back while a dialog is open.
    std::function<void(bool shown)> show = {};
};

/// Keeps the layers in their order whoever comes and goes. Within a layer the last one is in front.
/// What belongs to a screen is put when that screen comes and removed when it goes.
class Surfaces {
  public:
    /// Puts it in front of its layer; the owner's earlier one is dropped.
    void Put(const std::string& owner, Surface surface);
    /// Nothing happens when the owner has none.
    void Remove(const std::string& owner);
    /// Whose surface is in front in that layer; "" for an empty one.
    std::string Owner(Layer layer) const;
    /// Brings all of it in front of the screens again, as when one of these has come to the front.
    /// Nothing while a dialog is open: that stays in front, and its end does it.
    void Restack() const;
    /// Dialogs open and close in pairs, one within another.
    void DialogOpened();
    void DialogClosed();

  private:
    struct Entry {
        std::string owner;
        Surface surface;
    };
    void ShowPrograms(bool shown) const;

    std::vector<Entry> entries_; ///< from the back to the front
    int dialogs_ = 0;
};

} // namespace vk
