#include "platform/qt/qt_foreign_windows.h"

#include "platform/linux/x11/x11_focus.h"
#include "platform/linux/x11/x11_windows.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QWindow>

namespace vk {

namespace {

/// On Qt's own connection, whose events it is shown first.
class QtX11Windows : public X11Windows, QAbstractNativeEventFilter {
  public:
    explicit QtX11Windows(xcb_connection_t* connection) : X11Windows(connection) {
        QGuiApplication::instance()->installNativeEventFilter(this);
    }
    ~QtX11Windows() override { QGuiApplication::instance()->removeNativeEventFilter(this); }

  private:
    bool nativeEventFilter(const QByteArray& kind, void* event, qintptr*) override {
        return kind == "xcb_generic_event_t" &&
               Handle(*static_cast<const xcb_generic_event_t*>(event));
    }
};

// Null on another kind of display.
xcb_connection_t* Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

std::unique_ptr<ForeignWindows> MakeForeignWindows() {
    xcb_connection_t* const connection = Connection();
    if (!connection) return nullptr;
    return std::make_unique<QtX11Windows>(connection);
}

void ForceInput(QWidget& window) {
    const QWindow* handle = window.windowHandle();
    xcb_connection_t* const connection = Connection();
    if (!connection || !handle || !handle->isExposed()) return window.activateWindow();
    const X11Properties x(connection);
    const bool managed = !handle->flags().testFlag(Qt::BypassWindowManagerHint) && x.Managed();
    GiveInput(x, static_cast<xcb_window_t>(handle->winId()), managed);
}

} // namespace vk
