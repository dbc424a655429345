#include "platform/qt/qt_screen_saver.h"

#include <QGuiApplication>

#ifndef Q_OS_WIN
#include <xcb/xcb.h>
#endif

namespace vk {

void QtScreenSaver::Reset() {
#ifndef Q_OS_WIN
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) return;
    xcb_force_screen_saver(x11->connection(), XCB_SCREEN_SAVER_RESET);
    xcb_flush(x11->connection());
#endif
}

} // namespace vk
