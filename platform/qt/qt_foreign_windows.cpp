#include "platform/qt/qt_foreign_windows.h"

#include "platform/linux/x11/x11_windows.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>

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

} // namespace

std::unique_ptr<ForeignWindows> MakeForeignWindows() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) return nullptr;
    return std::make_unique<QtX11Windows>(x11->connection());
}

} // namespace vk
