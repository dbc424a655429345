// Waiting for what the event loop brings from outside.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

namespace vk::test {

/// Runs events until `condition` holds; false when it never does.
template<class Condition> bool Eventually(Condition condition) {
    QElapsedTimer patience;
    patience.start();
    while (!condition() && patience.elapsed() < 20'000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    return condition();
}

} // namespace vk::test
