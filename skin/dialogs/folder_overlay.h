// Choosing a folder or a file.
#pragma once

#include "platform/dialogs.h"
#include "skin/controls/text_block.h"
#include "skin/dialogs/dialog_overlay.h"
#include "skin/dialogs/folder_rows.h"

#include <string>

namespace vk {

/// The folders on the left, the buttons on the right. Up and Down walk both as one ring; Right goes
/// to the buttons at once, Left back.
class FolderOverlay : public DialogOverlay {
  public:
    /// `dialogs` asks for the name of a new folder.
    FolderOverlay(QWidget* host, const DialogLook& look, const Clock& clock, Dialogs& dialogs,
                  FolderRows rows, const std::string& caption);
    /// The folder; of files, the one that was chosen.
    const std::string& Path() const { return rows_.Files() ? chosen_ : rows_.Path(); }

    void Idle() override;

  protected:
    void LayOut() override;
    void DrawContent(QPainter& painter) override;
    bool ContentKey(QKeyEvent& event) override;
    void PressContent(QPoint point) override;
    void DragContent(QPoint point) override;
    void ReleaseContent(QPoint point) override;

  private:
    void AddButtons(const QRect& column);
    bool ListKey(int key);
    bool GoToLetter(const QString& typed);
    bool OnScrollMark(QPoint point) const;
    bool InList() const { return marked_ < 0; }
    int FirstButton() const { return cells_.front().usable ? 0 : cancel_; }
    void MarkRow(int row);
    int Count() const { return static_cast<int>(rows_.Rows().size()); }
    int VisibleRows() const;
    void Select(int row);
    void ScrollTo(int first);
    void EnterRow();
    void NewFolder();
    void DrawHead(QPainter& painter) const;
    void DrawRow(QPainter& painter, int row) const;

    Dialogs& dialogs_;
    FolderRows rows_;
    QString caption_;
    std::string chosen_;
    TextBlock captionBlock_;
    QRect captionBox_, pathBox_, list_, hintBox_;
    int rowHeight_ = 1;
    int cancel_ = 0; ///< the cell that gives up
    int selected_ = 0;
    int first_ = 0;
    int dragFrom_ = 0;
    int dragFirst_ = 0;
    bool dragged_ = false, onMark_ = false; ///< the finger: has moved; holds the scroll mark
    std::int64_t looked_ = 0; ///< when media were looked for, milliseconds of the steady clock
};

} // namespace vk
