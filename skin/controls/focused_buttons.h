// The buttons of a screen under the focus of keys: a frame around the one that is marked.
#pragma once

#include "core/screen_buttons.h"
#include "skin/controls/control_context.h"
#include "skin/controls/shaded_label.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// Finds what can be touched among a screen's children, whenever it is asked: the touch buttons,
/// and the labels that take a touch. Presses are touches of their middle.
class FocusedButtons : public QWidget, public ScreenButtons {
  public:
    /// How long a text is shown; milliseconds.
    static constexpr int SayMs = 5000;

    /// Lies over `screen`, which outlives it.
    FocusedButtons(const ControlContext& context, QWidget* screen);
    ~FocusedButtons() override;

    bool Offered() const override;
    bool Enter() override;
    void Leave() override;
    bool Marked() const override { return isVisible() && target_; }
    /// Where nothing lies above or below, up and down go from left to right, and round.
    void Move(int dx, int dy) override;
    void Press() override;
    void Release() override;
    void Say(const std::string& text) override;

    std::function<bool()> offered; ///< empty: always
    /// Called before the first mark and after the last: buttons may come for it and go.
    std::function<void(bool on)> onFocus;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    std::vector<QWidget*> Targets() const;
    QRect BoxOf(const QWidget& widget) const;
    bool Marks(const std::vector<QWidget*>& targets);
    void Mark(QWidget* target);
    int FrameWidth() const;
    void Touch(QEvent::Type type);

    ControlContext context_;
    QWidget& screen_;
    ShadedLabel note_;
    std::unique_ptr<Timer> noteTimer_;
    QPointer<QWidget> target_; ///< also the one to begin with when the mark comes again
    bool pressed_ = false;
};

} // namespace vk
