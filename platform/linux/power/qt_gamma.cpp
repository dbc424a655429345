// The ramps of the display that this program's windows are on.
#include "platform/linux/power/x11_gamma.h"

#include <QGuiApplication>
#include <QScreen>

namespace vk {

namespace {

/// Told of displays by Qt, which hears the extension's events on the same connection.
class QtX11Gamma : public X11Gamma {
  public:
    explicit QtX11Gamma(xcb_connection_t* connection) : X11Gamma(connection) {
        const auto tell = [this] {
            if (onDisplays) onDisplays();
        };
        QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, tell);
        QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_, tell);
        QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &context_, tell);
    }

  private:
    QObject context_;
};

} // namespace

std::unique_ptr<Gamma> MakeGamma() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) return nullptr;
    return std::make_unique<QtX11Gamma>(x11->connection());
}

} // namespace vk
