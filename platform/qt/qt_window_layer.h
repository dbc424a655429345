// The system's window through Qt.
#pragma once

#include "platform/screen_metrics.h"
#include "platform/window_layer.h"

#include <QWidget>

namespace vk {

class QtWindowLayer : public WindowLayer {
  public:
    /// `host` is the system's one top-level window and outlives this object.
    explicit QtWindowLayer(QWidget& host) : host_(host) {}
    void ForceForegroundWindow() override;
    void SetTopmost(bool on) override;
    void ShowCursor(bool shown) override;

  private:
    QWidget& host_;
};

/// The primary screen. Its density is what the user has set; where nothing is set it counts as 96.
ScreenMetrics QtScreenMetrics();

} // namespace vk
