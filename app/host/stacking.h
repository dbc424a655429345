// Keeps what lies over the screens there.
#pragma once

#include "skin/surfaces.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace vk {

/// A screen that comes to the front raises itself over everything in the window; films, programs
/// and bars are then raised again. Needs the application.
class Stacking : public QObject {
  public:
    /// Both outlive this object.
    Stacking(const QWidget& window, const Surfaces& surfaces)
        : window_(window), surfaces_(surfaces) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* target, QEvent* event) override {
        if (event->type() != QEvent::ZOrderChange || target->parent() != &window_) return false;
        if (std::exchange(restacking_, true)) return false; // our own doing
        surfaces_.Restack();
        restacking_ = false;
        return false;
    }

  private:
    const QWidget& window_;
    const Surfaces& surfaces_;
    bool restacking_ = false;
};

} // namespace vk
