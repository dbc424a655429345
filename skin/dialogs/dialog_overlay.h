// What all dialogs have in common: they cover the host, dim it, and are worked by keys and fingers.
#pragma once

#include "platform/clock.h"
#include "skin/controls/wheel_ticks.h"
#include "skin/dialogs/dialog_look.h"

#include <QWidget>

#include <functional>
#include <vector>

class QPainter;

namespace vk {

/// A button of a dialog.
struct DialogCell {
    QRect box;
    QString caption;
    std::function<void()> act;
    bool byKeys = true; ///< the arrows reach it
    bool usable = true; ///< false: drawn pale, it does nothing
};

/// One open dialog. Made on the heap as the host's child.
class DialogOverlay : public QWidget {
  public:
    DialogOverlay(QWidget* host, DialogLook look, const Clock& clock);

    /// Covers the host and takes the keyboard.
    void Open();
    /// The same as a press of this key, for what is no key; `repeat` when it is held on.
    void Press(Qt::Key key, bool repeat = false);
    /// Ends the dialog; `accepted` false is the cancelling answer. The first answer counts.
    void Finish(bool accepted);
    bool Accepted() const { return accepted_; }
    bool Finished() const { return finished_; }
    /// While it is in front it stays above everything in its window, and all keys of the window
    /// come to it.
    void SetFront(bool front);
    const std::vector<DialogCell>& Cells() const { return cells_; }
    int Marked() const { return marked_; }

    /// Called a few times a second while the dialog waits.
    virtual void Idle() {}

    /// The key that a key stands for by the user's map, Key_unknown for itself.
    std::function<Qt::Key(const QKeyEvent&)> meaning;

  protected:
    /// Sets `panel_`, the cells and whatever else depends on the size.
    virtual void LayOut() = 0;
    virtual void DrawContent(QPainter& painter) = 0;
    /// True where keys type a text, whatever they are mapped to but arrows, ok and quit.
    virtual bool TakesText() const { return false; }
    /// Has the first look at a key; true when it was used.
    virtual bool ContentKey(QKeyEvent& event);
    virtual void PressContent(QPoint) {}
    virtual void DragContent(QPoint) {}
    virtual void ReleaseContent(QPoint) {}

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* target, QEvent* event) override;

    /// Marks the nearest cell in a direction (-1, 0, 1 each). Up and down alone come to every cell.
    void MoveMark(int dx, int dy);
    /// A row of equal cells that fill `box`.
    void AddRow(const QRect& box, const std::vector<DialogCell>& row);
    /// Puts the panel in the middle, `part` of the host's width wide.
    void CentrePanel(double part, int height);
    int ButtonHeight() const { return height() / 7 + 1; }
    int Gap() const { return height() / 48; }
    void DrawScrollMark(QPainter& painter, const QRect& area, int whole, int offset) const;
    /// The title, empty for the application's own.
    static QString TitleText(const std::string& title);

    const Clock& clock_;
    DialogLook look_;
    QRect panel_;
    std::vector<DialogCell> cells_;
    int marked_ = -1;

  private:
    bool TooEarly() const;
    void UseKey(QKeyEvent& event);
    int CellAt(QPoint point) const;
    void Activate(int cell);
    void DrawCell(QPainter& painter, int index) const;

    void MarkBeside(int dx);
    void MarkInColumn(int dy);

    std::int64_t openedMs_ = 0;
    WheelTicks wheel_;
    int column_ = 0;    ///< that up and down follow: the middle of a cell, doubled
    int columnOf_ = -1; ///< the marked cell that it was taken from, or has led to
    int pressed_ = -1;
    bool pressOnContent_ = false;
    bool accepted_ = false;
    bool finished_ = false;
};

} // namespace vk
