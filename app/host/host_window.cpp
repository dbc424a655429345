#include "app/host/host_window.h"

#include "platform/qt/virtual_keys.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace vk {

HostWindow::HostWindow() {
    setWindowTitle(QStringLiteral("Velkorandum"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void HostWindow::ShowOnScreen() {
    // Without a window manager nothing makes the window large.
    setGeometry(QGuiApplication::primaryScreen()->geometry());
    showFullScreen();
    raise();
    activateWindow();
    setFocus();
}

bool HostWindow::Exposed() const {
    return windowHandle() && windowHandle()->isExposed();
}

void HostWindow::keyPressEvent(QKeyEvent* event) {
    const std::string code = VirtualKeyText(*event);
    const bool heldOn = sure_.isActive() && code == released_ && event->timestamp() == releasedAt_;
    heldOn ? sure_.stop() : LetGo();
    if (!heldOn && !event->isAutoRepeat()) pressedAt_ = event->timestamp();
    event->setAccepted(onKey && onKey(code, heldOn || event->isAutoRepeat()));
}

// For a key that is held on the system sends both, in one moment. The toolkit knows that as long as
// the second has arrived when it looks at the first.
void HostWindow::keyReleaseEvent(QKeyEvent* event) {
    constexpr int SureMs = 30, ShortMs = 150; // no display holds a key on that soon
    if (event->isAutoRepeat()) return;
    LetGo();
    released_ = VirtualKeyText(*event);
    releasedAt_ = event->timestamp();
    sure_.start(SureMs, this);
    if (releasedAt_ < pressedAt_ + ShortMs) LetGo();
}

void HostWindow::timerEvent(QTimerEvent* event) {
    event->timerId() == sure_.timerId() ? LetGo() : QWidget::timerEvent(event);
}

void HostWindow::LetGo() {
    if (!sure_.isActive()) return;
    sure_.stop();
    if (onKeyUp) onKeyUp(released_);
}

void HostWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (onClose) onClose();
}

void HostWindow::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace vk
