// The audio player's screen: what is drawn and what is touched. What it does is the logic's.
#pragma once

#include "playback/audio/audio_player.h"
#include "playback/screen/cover_loader.h"
#include "playback/screen/player_layout.h"
#include "skin/controls/control_context.h"
#include "skin/controls/focused_buttons.h"
#include "skin/controls/shaded_label.h"
#include "skin/controls/touch_button.h"
#include "skin/controls/uc_list_box.h"
#include "skin/controls/uc_scroll_text.h"
#include "skin/controls/wheel_ticks.h"
#include "skin/list_model.h"

#include <QLabel>
#include <QPixmap>
#include <QWidget>

#include <map>
#include <memory>
#include <string>

namespace vk {

/// One instance, a child of the host window, loaded for the whole run.
class playmp3 : public QWidget, private PlayerView {
  public:
    playmp3(const ControlContext& context, AudioPlayer::Needs needs, QWidget* parent);

    void Hide() { hide(); }
    /// Places every control for the configured size, and takes colours, fonts and pictures from
    /// the skin in use.
    void DoLayout();

    /// What is done on it.
    AudioPlayer& player() { return player_; }
    FocusedButtons& Buttons() { return focus_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void ShowTitle(const std::string& text) override { UCST_.ScrollText(text); }
    void ShowArtist(const std::string& text) override { artistlabel_.SetText(text); }
    void ShowBitRate(const std::string& text) override { lblBitRate_.SetText(text); }
    void ShowTrackTime(const std::string& text) override { TrackTimeLabel_.SetText(text); }
    void ShowListTitle(const std::string& text) override { lbPlayListTitle_.SetText(text); }
    void ShowVolume(const std::string& text) override;
    void ShowClock(const std::string& text) override { Label1_.SetText(text); }
    void ShowLoading(const std::string& text) override;
    void ShowMediaType(const std::string& picture) override;
    void ShowShuffle(bool on) override { lblShuffle_.setVisible(on); }
    void SetButton(PlayerButton button, const std::string& picture) override;
    void LoadCover(const CoverRequest& request,
                   std::function<void(const CoverOutcome&)> done) override;
    void HideCover() override;
    void ReDrawCover() override { imgCoverArt_.update(); }
    void ReDrawList() override { UCListBox_.ReDrawList(); }
    void ShowFrame(bool shown) override { Frame1_.setVisible(shown); }
    void ShowAtFront() override;

    void NameControls();
    void MakeButtons();
    TouchButton& Button(TouchButtonId id) { return *buttons_.at(id); }
    void HoldButton(TouchButtonId id, HeldAction action);
    void ConnectList();
    void Place();
    void Dress();
    void PlaceList();
    void PlaceButtons();
    void ShowUpperBar(bool open);
    void ShowCover(const QImage& image);

    ControlContext context_;
    PlayerLayout layout_;
    ListModel rows_;
    QWidget Frame1_;
    ShadedLabel lbPlayListTitle_, Vol_, Label1_, artistlabel_, TrackTimeLabel_, lblBitRate_,
        lblShuffle_;
    UCScrollText UCST_;
    UCListBox UCListBox_;
    QLabel imgCoverArt_;
    QWidget frmUpperBar_;
    ShadedLabel lbLoading_;
    std::map<TouchButtonId, std::unique_ptr<TouchButton>> buttons_;
    std::string mediaType_;
    bool upperOpen_ = false;
    CoverLoader covers_;
    FocusedButtons focus_;
    WheelTicks wheel_;
    AudioPlayer player_;
};

} // namespace vk
