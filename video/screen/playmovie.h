// The movie player's screen: what is drawn and what is touched. What it does is the logic's.
#pragma once

#include "skin/controls/control_context.h"
#include "skin/controls/focused_buttons.h"
#include "skin/controls/shaded_label.h"
#include "skin/controls/touch_button.h"
#include "skin/controls/wheel_ticks.h"
#include "video/movie_keys.h"
#include "video/movie_player.h"
#include "video/screen/film_widget.h"
#include "video/screen/movie_bar.h"
#include "video/screen/movie_layout.h"

#include <QLabel>
#include <QWidget>

#include <map>
#include <memory>
#include <string>

namespace vk {

/// One instance, a child of the host window, loaded for the whole run.
class playmovie : public QWidget, private MovieView {
  public:
    /// `keys` outlives the screen, as all of `needs` does.
    playmovie(const ControlContext& context, const MoviePlayer::Needs& needs, const KeyMap& keys,
              QWidget* parent);

    void Hide() { hide(); }
    void DoLayout();

    /// What is done on it, and by which hands.
    MoviePlayer& player() { return player_; }
    MovieKeys& keys() { return keys_; }
    FocusedButtons& Buttons() { return focus_; }

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    void ShowPicture(std::shared_ptr<const FilmPicture> picture) override {
        film_.Show(std::move(picture));
    }
    void ShowLoading(bool shown) override { Image4_.setVisible(shown); }
    void ShowTitle(const std::string& text) override { lbFileTitle_.SetText(text); }
    void ShowTime(const std::string& text) override { lbTime_.SetText(text); }
    void ShowVolume(const std::string& text) override;
    void ShowMessage(const std::string& text) override;
    void ShowPaused(bool paused) override;
    void ShowBars(double in) override;
    void ShowAtFront() override;

    void NameControls();
    void MakeButtons();
    void HoldButton(MovieButton id, HeldAction action);
    TouchButton& Button(MovieButton id) { return *buttons_.at(id); }
    void Place();
    void Dress();

    ControlContext context_;
    MovieLayout layout_;
    FilmWidget film_;
    QLabel Image4_;
    ShadedLabel Vol_, lbMessage_;
    MovieBar frmInfoBar_, frmButtonBar_;
    ShadedLabel lbFileTitle_, lbTime_;
    std::map<MovieButton, std::unique_ptr<TouchButton>> buttons_;
    double in_ = 0;
    FocusedButtons focus_;
    WheelTicks wheel_;
    MoviePlayer player_;
    MovieKeys keys_;
};

} // namespace vk
