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
    event->setAccepted(onKey && onKey(code, event->isAutoRepeat()));
}

// The system sends both for a key that is held on, too.
void HostWindow::keyReleaseEvent(QKeyEvent* event) {
    if (onKeyUp && !event->isAutoRepeat()) onKeyUp(VirtualKeyText(*event));
}

void HostWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (onClose) onClose();
}

void HostWindow::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace vk
