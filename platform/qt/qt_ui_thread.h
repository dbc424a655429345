// Work for the user-interface thread, carried by Qt's event queue.
#pragma once

#include "platform/ui_thread.h"

#include <QObject>

namespace vk {

/// To be made on the user-interface thread. Work that is pending when it goes is dropped.
class QtUiThread : public UiThread {
  public:
    void Post(std::function<void()> work) override {
        QMetaObject::invokeMethod(&target_, std::move(work), Qt::QueuedConnection);
    }

  private:
    QObject target_;
};

} // namespace vk
