// The media browser's screen: layout and wiring; what it does is the `Browser`'s.
#pragma once

#include "browser/browser.h"
#include "skin/controls/control_context.h"
#include "skin/controls/focused_buttons.h"
#include "skin/controls/shaded_label.h"
#include "skin/controls/text_entry_panel.h"
#include "skin/controls/touch_button.h"
#include "skin/controls/uc_list_box.h"
#include "skin/controls/wheel_ticks.h"

#include <QWidget>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// One instance, made once and kept.
class playlists : public QWidget, private BrowserView {
  public:
    struct Needs {
        ControlContext context;
        BrowserNeeds browser;
    };
    playlists(const Needs& needs, QWidget* parent);

    /// What is registered under `BrowserName`, with this as its window.
    Browser& browser() { return browser_; }
    FocusedButtons& Buttons() { return focus_; }
    /// Places and fills every part anew for the screen's size, the skin and the browser's mode.
    void DoLayout();
    void Hide() { hide(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    /// One touch button: its name, its picture, and what stands there without a picture.
    struct ButtonRow {
        const char* name;
        const char* picture;
        const char* caption;
        void (*click)(Browser&); ///< null: wired by itself
        bool (playlists::*offered)() const;
    };
    static const std::vector<ButtonRow> BottomRows, ToolRows;

    void SetTitle(const std::string& text) override;
    void ShowLoading(const std::string& text) override;
    void HideLoading() override { lbLoading.hide(); }
    void SetClock(const std::string& text) override { ClockBar.SetText(text); }
    void SetButton(BrowserButton button, const std::string& picture) override;
    void ShowToolFrame(bool open) override;
    void ReDrawList() override { UCListBox_.ReDrawList(); }
    void ReDrawRightList() override { UCListBox2_.ReDrawList(); }
    void LayOut(std::int16_t listMode) override;
    void ShowFocus(bool right) override;
    void ShowAtFront() override;

    TouchButton& MakeButton(const ButtonRow& row, QWidget* parent);
    void MakeButtons(const std::vector<ButtonRow>& rows, QWidget* parent);
    void CoverLists(bool open);
    void WireVolume(const char* name, const char* pressed, void (Browser::*change)());
    std::vector<TouchButton*> Offered(const std::vector<ButtonRow>& rows);
    void LayoutList(UCListBox& list, const QRect& place);
    void LayoutLabels();
    void DrawFocusFrame(QPainter& painter) const;
    void LayoutButtons();
    bool Always() const { return true; }
    bool HasRadio() const { return Browsing() && browser_.Ways().HasRadio(); }
    bool HasDiscDrive() const { return Browsing() && browser_.Buttons().HasDiscDrive(); }
    bool HasGPS() const { return Browsing() && browser_.Ways().HasGPS(); }
    bool Building() const { return listMode_ == ListBuild; }
    bool Browsing() const { return !Building(); }

    ControlContext context_;
    ListModel list_, rightList_;
    KeyboardModel keyboard_;
    UCListBox UCListBox_;
    UCListBox UCListBox2_; ///< the list that is built, shown in that mode only
    QWidget toolFrame_;
    QWidget bottomBar_;
    TextEntryPanel KBFrame;
    ShadedLabel lblCurrentFolderStatus;
    ShadedLabel ClockBar;
    ShadedLabel lbLoading;
    FocusedButtons focus_;
    std::map<std::string, std::unique_ptr<TouchButton>> buttons_; ///< by the names of their rows
    TextEntry text_{keyboard_, KBFrame};
    std::int16_t listMode_ = ListFromMenu; ///< that the screen is laid out for
    Browser browser_;
    std::unique_ptr<Timer> volumeTimer_; ///< repeats a held volume button
    void (Browser::*heldVolume_)() = nullptr;
    WheelTicks wheel_;
};

} // namespace vk
