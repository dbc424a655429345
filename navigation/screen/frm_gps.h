// The map's screen: what is drawn around the map, and what is touched. What it does is the logic's.
#pragma once

#include "navigation/gps_screen.h"
#include "navigation/isn_file.h"
#include "navigation/screen/area_button.h"
#include "navigation/screen/isn_layout.h"
#include "skin/controls/control_context.h"
#include "skin/controls/focused_buttons.h"
#include "skin/controls/shaded_label.h"
#include "skin/controls/text_entry_panel.h"
#include "skin/controls/uc_list_box.h"
#include "skin/controls/wheel_ticks.h"

#include <QWidget>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// One instance, a child of the host window, loaded for the whole run.
class frmGPS : public QWidget, private GPSView {
  public:
    /// `isn` outlives the screen.
    frmGPS(const ControlContext& context, const GPSScreen::Needs& needs, IsnFile& isn,
           QWidget* parent);

    GPSScreen& screen() { return screen_; }
    FocusedButtons& Buttons() { return focus_; }
    void Hide() { hide(); }
    /// Takes the GPS skin that belongs to the skin in use, and places all of it.
    void DoLayout();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void SetLabel(GPSLabel label, const std::string& text) override;
    void ShowVolume(bool shown) override;
    void ShowMessage(const std::string& text) override;
    void ShowComplaint(const std::string& text) override;
    void ShowList(bool shown) override;
    void ReDrawList() override { UCListBox_.ReDrawList(); }
    void SetAudio(bool plays) override;
    WindowArea MapArea() const override;
    void ShowAtFront() override;

    void MakeAreas();
    void WireArea(AreaButton& area);
    double TextScale() const;
    SkinFont Sized(SkinFont font) const;
    void PlaceLabels();
    void PlaceLabel(ShadedLabel& label, const IsnSkin::Label& as);
    void PlaceBar();
    void PlaceMap();
    void ShowLabels();
    void DressAreas();
    QPixmap Picture(bool pressed) const;
    IsnState State() const;
    QColor GroundAt(const QRect& place) const;

    ControlContext context_;
    IsnFile& isn_;
    IsnLayout layout_;
    ListModel rows_;
    KeyboardModel keyboard_;
    std::map<GPSLabel, std::unique_ptr<ShadedLabel>> labels_;
    std::vector<std::unique_ptr<AreaButton>> areas_;
    QWidget frmBrowseDest_; ///< the place of the map
    ShadedLabel complaint_;
    UCListBox UCListBox_;
    ShadedLabel lblMessage_;
    TextEntryPanel KBFrame_;
    FocusedButtons focus_;
    WheelTicks wheel_;
    TextEntry text_{keyboard_, KBFrame_};
    bool audio_ = false;
    bool volumeShown_ = false;
    bool pressed_ = false; ///< a finger is down outside of all areas
    GPSScreen screen_;
};

} // namespace vk
