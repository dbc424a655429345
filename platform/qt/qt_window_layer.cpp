#include "platform/qt/qt_window_layer.h"

#include "platform/qt/qt_foreign_windows.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <cmath>

namespace vk {

namespace {

// Qt gives the density measured from the screen's size where the user has set none.
int SetDensity(qreal logical, qreal physical) {
    return std::abs(logical - physical) < 0.5 ? 96 : static_cast<int>(std::lround(logical));
}

} // namespace

void QtWindowLayer::ForceForegroundWindow() {
    if (host_.isMinimized()) host_.showFullScreen();
    host_.raise(); // where nobody manages the windows, an active one may lie under another
    if (!host_.isActiveWindow()) ForceInput(host_);
}

void QtWindowLayer::SetTopmost(bool on) {
    if (QWindow* window = host_.windowHandle()) window->setFlag(Qt::WindowStaysOnTopHint, on);
}

void QtWindowLayer::ShowCursor(bool shown) {
    if (shown)
        host_.unsetCursor();
    else
        host_.setCursor(Qt::BlankCursor);
}

ScreenMetrics QtScreenMetrics() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return {};
    const QSize size = screen->geometry().size();
    return {size.width(), size.height(),
            SetDensity(screen->logicalDotsPerInchX(), screen->physicalDotsPerInchX()),
            SetDensity(screen->logicalDotsPerInchY(), screen->physicalDotsPerInchY())};
}

} // namespace vk
