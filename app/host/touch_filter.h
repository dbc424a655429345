// Keeps touches of the screen that has gone away from the new one.
#pragma once

#include "input/new_screen.h"

#include <QEvent>
#include <QObject>

#include <utility>

namespace vk {

/// To be installed on the application. Right after a change of screen a press is dropped, and its
/// release with it: the second tap of a double tap on a tile.
class TouchFilter : public QObject {
  public:
    /// `newScreen` outlives this object.
    explicit TouchFilter(const NewScreen& newScreen) : newScreen_(newScreen) {}

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            dropped_ = newScreen_.Deaf();
            return dropped_;
        case QEvent::MouseMove:
            return dropped_;
        case QEvent::MouseButtonRelease:
            return std::exchange(dropped_, false);
        default:
            return false;
        }
    }

  private:
    const NewScreen& newScreen_;
    bool dropped_ = false; ///< the last press was
};

} // namespace vk
