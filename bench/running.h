// The whole application with songs and a sound card, pressed and looked at.
#pragma once

#include "app/application.h"
#include "app/linux/linux_ports.h"
#include "bench/song_folder.h"
#include "tests/support/fake_card.h"

#include <QApplication>
#include <QKeyEvent>

#include <chrono>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>

namespace vk::test {

using SteadyClock = std::chrono::steady_clock;

/// Tells when the window was painted.
class PaintWatch : public QObject {
  public:
    bool painted = false;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        painted |= event->type() == QEvent::Paint;
        return false;
    }
};

class Running {
  public:
    static constexpr auto SettleTime = std::chrono::milliseconds(1000); ///< a new screen is deaf

    /// `songs` files in its media folder.
    explicit Running(int songs) : folder_(songs) {
        qApp->installEventFilter(&watch_);
        ports_ = std::make_unique<LinuxPorts>(folder_.dir.Path());
        app_ = std::make_unique<Application>(folder_.dir.Path(), ports_->ports(), [] {});
        started = folder_.ready && app_->Start();
        Run(SettleTime);
    }
    /// Milliseconds from the press to the end of the painting that follows; -1 without one.
    double Press(int key) {
        return Shown([key] {
            for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent event(type, key, Qt::NoModifier);
                QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
            }
        });
    }
    /// The same for something else that is done.
    double Shown(const std::function<void()>& done) {
        watch_.painted = false;
        const auto begin = SteadyClock::now();
        done();
        while (!watch_.painted && SteadyClock::now() - begin < std::chrono::seconds(1))
            QCoreApplication::processEvents();
        const std::chrono::duration<double, std::milli> time = SteadyClock::now() - begin;
        return watch_.painted ? time.count() : -1;
    }
    void Go(std::initializer_list<int> keys) {
        for (const int key : keys) {
            Press(key);
            Run(SettleTime);
        }
    }
    /// The name of the screen in front; of a dialog when one lies over it.
    std::string Front() {
        return app_->host().dialogs.Active() ? "a dialog" : app_->host().screens.CurrentForm.Text();
    }
    Host& host() { return app_->host(); }
    static void Run(std::chrono::milliseconds time) {
        for (const auto end = SteadyClock::now() + time; SteadyClock::now() < end;)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }

    bool started = false;

  private:
    FakeCard card_{{"Master Playback", "PCM Playback"}};
    SongFolder folder_;
    PaintWatch watch_;
    std::unique_ptr<LinuxPorts> ports_;
    std::unique_ptr<Application> app_;
};

} // namespace vk::test
