#include "platform/qt/qt_input_hooks.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

#include <utility>

namespace vk {

namespace {

constexpr int RetryMs = 50, MostTries = 40;

} // namespace

QtInputHooks::QtInputHooks(QWidget& host) : host_(host) {
    retry_.setInterval(RetryMs);
    connect(&retry_, &QTimer::timeout, this, [this] { Try(); });
    QCoreApplication::instance()->installEventFilter(this);
}

QtInputHooks::~QtInputHooks() {
    QtInputHooks::UnhookKeyboard();
    QtInputHooks::UnhookMouse();
}

QWindow* QtInputHooks::Window() const {
    return host_.windowHandle();
}

void QtInputHooks::HookKeyboard() {
    keyboard_ = true;
    Try();
}

void QtInputHooks::UnhookKeyboard() {
    keyboard_ = false;
    if (std::exchange(keysGrabbed_, false) && Window()) Window()->setKeyboardGrabEnabled(false);
}

void QtInputHooks::HookMouse() {
    mouse_ = true;
    if (host_.cursor().shape() != Qt::BlankCursor) {
        host_.setCursor(Qt::BlankCursor);
        hidden_ = true;
    }
    Try();
}

void QtInputHooks::UnhookMouse() {
    if (std::exchange(grabbed_, false) && Window()) Window()->setMouseGrabEnabled(false);
    if (std::exchange(hidden_, false)) host_.unsetCursor();
    mouse_ = false;
}

bool QtInputHooks::Grab() {
    if (!Window()) return true;
    if (keyboard_ && !keysGrabbed_) keysGrabbed_ = Window()->setKeyboardGrabEnabled(true);
    if (mouse_ && !grabbed_) grabbed_ = Window()->setMouseGrabEnabled(true);
    return keysGrabbed_ == keyboard_ && grabbed_ == mouse_;
}

void QtInputHooks::Try() {
    if (!retry_.isActive()) tries_ = 0;
    if (Grab() || ++tries_ >= MostTries)
        retry_.stop();
    else if (!retry_.isActive())
        retry_.start();
}

// A finger that is still down when the hook is taken out touches nothing either.
bool QtInputHooks::eventFilter(QObject* target, QEvent* event) {
    if (!target->isWindowType()) return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        if (!mouse_) return false;
        if (!std::exchange(down_, true) && onTouch) onTouch();
        return true;
    case QEvent::MouseMove:
    case QEvent::TouchUpdate:
        return mouse_ || down_;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return std::exchange(down_, false) || mouse_;
    default:
        return false;
    }
}

} // namespace vk
