// The drawn list of every list screen.
#pragma once

#include "skin/controls/control_context.h"
#include "skin/list_model.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>

class QPainter;

namespace vk {

/// Draws the visible page of a `ListModel` over the skin's background, and turns touches into rows
/// and strip presses. It never takes the keyboard.
class UCListBox : public QWidget {
  public:
    /// Codes of `onScrollStart`.
    static constexpr int ScrollUpCode = 5;
    static constexpr int ScrollDownCode = 6;

    /// `model` outlives the control.
    UCListBox(const ControlContext& context, ListModel& model, QWidget* parent);
    ~UCListBox() override;

    /// Computes the geometry from the skin's list font, the setting ListSpacing and the control's
    /// height, and takes the pictures by their names in the skin's folder. To be called after
    /// setGeometry and again after a change of size or skin.
    void SetiMaxVis(const std::string& background, const std::string& arrowUp = "arrowup.gif",
                    const std::string& arrowDown = "arrowdown.gif");

    /// The model's operations, drawn at the next paint.
    void AddItem(const std::string& first, const std::string& second, const std::string& descriptor,
                 const std::string& picture = {}, std::int32_t icon = 0);
    void RemoveItem(int index, bool redraw = true);
    void ClearArraysXM();
    void ClearAllArrays();
    /// Shows the rows.
    void LoadList();
    void MoveUp();
    void MoveDown();
    void PageUp();
    void PageDown();
    void SelectItem(int index, bool jump = false, bool keep = false);
    void RplTitleListItem(int index, const std::string& text);
    void RplartistListItem(int index, const std::string& text);
    void RplFilenameListItem(int index, const std::string& text);
    /// Draws the page anew, whoever changed the model.
    void ReDrawList();

    ListModel& model() { return model_; }
    const ListModel& model() const { return model_; }

    /// Of the skin's font size. The rows of a narrow list, which has a smaller one, are as high all
    /// the same; with a larger one they grow. Taken by `SetiMaxVis`.
    double FontScale = 1;
    bool ShowFocusBar = true;  ///< the list has the focus: the selected row is ruled
    bool ShowHighlight = true; ///< the row `iHighlight` is drawn in the playing row's colour

    /// Turns an icon handle of a row into a picture; without it icons are not drawn.
    std::function<QPixmap(std::int32_t handle, QSize box)> iconPicture;
    /// These two are commands: dropped while another one runs.
    std::function<void(int index)> onItemClick;
    /// A strip is pressed: `ScrollUpCode` or `ScrollDownCode`. Where nobody takes it the list
    /// itself pages while the strip is held.
    std::function<void(int code)> onScrollStart;
    /// After every release, and when the list is hidden while a strip is held.
    std::function<void()> onScrollStop;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    struct RowLook {
        QColor first, second, shadow;
        bool bright = false; ///< selected or highlighted: with a shadow
    };
    /// Both texts as far as there is room; `firstWidth` in pixels.
    struct RowTexts {
        QString first, second;
        int firstWidth = 0;
    };
    void SetRows();
    bool IsSelectedRow(int row) const;
    int TextRoom(int row) const;
    RowTexts TextsOf(int row, const QFontMetrics& metrics) const;
    QSize ArrowBox() const;
    QPixmap ArrowPicture(bool up) const;
    QSize ArrowSize(bool up) const;
    RowLook LookOf(int row) const;
    QRect RowRect(int row) const;
    int StripAt(QPoint point) const;
    /// Makes a change of cursor or page and draws what it touched.
    void Move(const std::function<void()>& change);
    void PressStrip(int code);
    void TouchRow(int row);
    bool ShowTouched(int row);
    void Timer1_Timer();
    void EndTouch();
    void DrawGround(QPainter& painter) const;
    void DrawRow(QPainter& painter, int row);
    void DrawSelection(QPainter& painter, int row) const;
    void DrawText(QPainter& painter, int row) const;
    int TextTop() const;
    QFont NoticeFont(int row) const;
    void DrawRowPicture(QPainter& painter, int row);
    void DrawArrows(QPainter& painter) const;
    void DrawArrow(QPainter& painter, bool up) const;

    ControlContext context_;
    ListModel& model_;
    std::unique_ptr<Timer> timer1_;
    PicturePart ground_;
    std::string arrowUp_, arrowDown_;
    QFont font_;
    bool stripHeld_ = false; ///< whoever scrolls
    bool scrollUpHeld_ = false;
    bool scrollDownHeld_ = false;
    int heldTicks_ = 0; ///< since the first page of the held strip
    bool paged_ = true; ///< the held strip has paged already
    std::int64_t deafUntilMs_ = 0;
};

} // namespace vk
