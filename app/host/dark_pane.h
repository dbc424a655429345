// Dims the window where the display itself cannot be dimmed.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace vk {

/// Lies over all of its parent, dialogs included, and lets touches through.
class DarkPane : public QWidget {
  public:
    explicit DarkPane(QWidget* window) : QWidget(window) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_ShowWithoutActivating);
        hide();
    }

    void SetDark(bool on) {
        on ? qApp->installEventFilter(this) : qApp->removeEventFilter(this);
        setGeometry(parentWidget()->rect());
        setVisible(on);
        if (on) raise();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int Half = 128;
        QPainter(this).fillRect(rect(), QColor(0, 0, 0, Half));
    }
    // What comes to the front comes under it.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool rises = event->type() == QEvent::ZOrderChange || event->type() == QEvent::Show;
        if (watched != this && rises && watched->parent() == parentWidget()) raise();
        if (watched == parentWidget() && event->type() == QEvent::Resize)
            setGeometry(parentWidget()->rect());
        return false;
    }
};

} // namespace vk
