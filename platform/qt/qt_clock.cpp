#include "platform/qt/qt_clock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

namespace vk {

namespace {

class QtTimer : public Timer {
  public:
    explicit QtTimer(std::function<void()> onTick) : onTick_(std::move(onTick)) {
        timer_.setTimerType(Qt::PreciseTimer);
        // The tick may destroy this timer, so what runs is a copy.
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            const auto tick = onTick_;
            tick();
        });
    }
    void Start(int intervalMs) override { timer_.start(intervalMs < 1 ? 1 : intervalMs); }
    void Stop() override { timer_.stop(); }
    bool Enabled() const override { return timer_.isActive(); }

  private:
    QTimer timer_;
    std::function<void()> onTick_;
};

} // namespace

DateTime QtClock::Now() const {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {date.year(),   date.month(),  date.day(),  time.hour(),
            time.minute(), time.second(), time.msec(), date.dayOfWeek() % 7};
}

std::int64_t QtClock::TickMs() const {
    static const QElapsedTimer started = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return started.elapsed();
}

void QtClock::Sleep(int milliseconds) {
    QThread::msleep(static_cast<unsigned long>(milliseconds < 0 ? 0 : milliseconds));
}

void QtClock::DoEvents(int waitMs) {
    if (waitMs <= 0) return QCoreApplication::processEvents();
    QTimer end; // wakes the loop when nothing else does
    end.setTimerType(Qt::PreciseTimer);
    end.setSingleShot(true);
    end.start(waitMs);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

std::unique_ptr<Timer> QtClock::MakeTimer(std::function<void()> onTick) {
    return std::make_unique<QtTimer>(std::move(onTick));
}

} // namespace vk
