#include "visuals/window/stay_awake.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <xcb/xcb.h>

namespace vk {

void KeepScreenAwake() {
    constexpr qint64 EveryMs = 30000;
    static QElapsedTimer last;
    if (last.isValid() && last.elapsed() < EveryMs) return;
    last.start();
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) return;
    xcb_force_screen_saver(x11->connection(), XCB_SCREEN_SAVER_RESET);
    xcb_flush(x11->connection());
}

} // namespace vk
