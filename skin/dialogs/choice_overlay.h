// Choosing one of a few rows.
#pragma once

#include "skin/dialogs/dialog_overlay.h"

#include <string>
#include <vector>

namespace vk {

/// What there is to choose from.
struct ChoiceTexts {
    std::string title;
    std::vector<std::string> rows; ///< UTF-8
    int marked = 0;
};

/// Rows over the whole width, which scroll a row at a time by the arrows and a page by two buttons
/// beside the cancelling one.
class ChoiceOverlay : public DialogOverlay {
  public:
    ChoiceOverlay(QWidget* host, const DialogLook& look, const Clock& clock, ChoiceTexts texts);
    /// The place of the row that was pressed.
    int Chosen() const { return chosen_; }

  protected:
    void LayOut() override;
    void DrawContent(QPainter& painter) override;
    bool ContentKey(QKeyEvent& event) override;

  private:
    int Count() const { return static_cast<int>(texts_.rows.size()); }
    void AddRows();
    void AddFoot();
    void ScrollTo(int first);
    bool Step(int way);

    ChoiceTexts texts_;
    QRect list_, foot_, head_;
    int visible_ = 1; ///< rows
    int first_ = 0;
    int chosen_ = -1;
};

} // namespace vk
