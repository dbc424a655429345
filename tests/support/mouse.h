// A finger on a widget.
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

namespace vk::test {

/// Sends one event of the left button at a point of the widget.
inline void Mouse(QWidget& widget, QEvent::Type type, QPoint at) {
    const QPointF global = widget.mapToGlobal(QPointF(at));
    const bool press = type == QEvent::MouseButtonPress;
    const bool move = type == QEvent::MouseMove;
    QMouseEvent event(type, QPointF(at), global, move ? Qt::NoButton : Qt::LeftButton,
                      press || move ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void Press(QWidget& widget, QPoint at) {
    Mouse(widget, QEvent::MouseButtonPress, at);
}
inline void Drag(QWidget& widget, QPoint at) {
    Mouse(widget, QEvent::MouseMove, at);
}
inline void Release(QWidget& widget, QPoint at) {
    Mouse(widget, QEvent::MouseButtonRelease, at);
}
inline void Click(QWidget& widget, QPoint at) {
    Press(widget, at);
    Release(widget, at);
}

} // namespace vk::test
