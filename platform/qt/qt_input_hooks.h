// The input of the whole screen by grabs of the display.
#pragma once

#include "platform/input_hooks.h"

#include <QObject>
#include <QTimer>
#include <QWidget>

namespace vk {

/// Grabs need no window manager, and it does not matter which window has the focus or lies in
/// front.
class QtInputHooks : public QObject, public InputHooks {
  public:
    /// `host` is the system's own top-level window and outlives this object. Needs the application.
    explicit QtInputHooks(QWidget& host);
    ~QtInputHooks() override;

    void HookKeyboard() override;
    void UnhookKeyboard() override;
    void HookMouse() override;
    void UnhookMouse() override;

  protected:
    bool eventFilter(QObject* target, QEvent* event) override;

  private:
    QWindow* Window() const;
    bool Grab();
    void Try();

    QWidget& host_;
    QTimer retry_;
    int tries_ = 0;
    bool keyboard_ = false, mouse_ = false;      ///< wanted
    bool keysGrabbed_ = false, grabbed_ = false; ///< granted: the keyboard, the pointer
    bool hidden_ = false;                        ///< the pointer, by this
    bool down_ = false;                          ///< a finger is on the screen whose touch was told
};

} // namespace vk
