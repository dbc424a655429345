// The dark backdrop behind every screen, with the progress bar of the start.
#pragma once

#include "core/app_state.h"
#include "core/screens.h"
#include "skin/loading_screen.h"
#include "skin/skin.h"

#include <QWidget>

#include <string>

namespace vk {

/// Stays for the whole run: a gap between two screens shows it, not the desktop. Covers its parent;
/// what is drawn on it stands where the screens will.
class BlackBackground : public QWidget, public LoadingScreen {
  public:
    /// The skin may still be unloaded; built-in colours are used until it is.
    BlackBackground(const AppState& state, Screens& screens, const SkinStore& skin,
                    QWidget* parent);

    /// Makes itself `CurrentForm`, covers the parent and comes to the front, drawn at once.
    void Load() override;
    /// The range is the distance of the two, one more when `from` is below 1. Starts at 1.
    void InitProgress(int from, int to) override;
    void SetProgress(int value) override;
    void SetProgressToMax() override;
    /// Empties the bar for the next start and hides its filled part.
    void ClearScreen() override;
    void ReBlit() override;
    int Range() const { return range_; }
    /// The filled part of the bar, 0 to 1.
    double Filled() const;

    /// Nothing but the entries that input and switching may reach.
    void doquit() {}
    void runok() {}
    void MoveUp() {}
    void MoveDown() {}
    void MoveBack() {}
    void MoveAhead() {}
    void VolUp() {}
    void VolDown() {}
    void switchingform() {}
    void DoLayout();
    void ReShow() { Load(); }
    /// It is never hidden: it lowers itself behind the other screens.
    void Hide() { lower(); }
    bool Form_KeyDown(const std::string&) { return false; }
    bool DoAction(const InputCode&) { return false; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QRect Interface() const;
    QRect BarRect() const;
    QColor Accent() const;
    void DrawName(QPainter& painter) const;
    void DrawBar(QPainter& painter) const;

    const AppState& state_;
    Screens& screens_;
    const SkinStore& skin_;
    int value_ = 0;
    int range_ = 1;
    bool faceShown_ = false; ///< `lblface`, the filled part
};

} // namespace vk
