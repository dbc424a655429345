// One line of text, typed or put together on drawn keys.
#pragma once

#include "skin/controls/text_block.h"
#include "skin/dialogs/dialog_overlay.h"

#include <string>

namespace vk {

/// Enter on a physical keyboard accepts after typing; on the drawn keys it presses the marked one.
class InputOverlay : public DialogOverlay {
  public:
    InputOverlay(QWidget* host, const DialogLook& look, const Clock& clock, const std::string& text,
                 const std::string& title, const std::string& value);
    std::string Value() const { return value_.toStdString(); }

  protected:
    void LayOut() override;
    void DrawContent(QPainter& painter) override;
    bool TakesText() const override { return true; }
    bool ContentKey(QKeyEvent& event) override;

  private:
    enum class Page { Small, Capital, Signs };
    void AddKeys(const QRect& box);
    void AddFoot(const QRect& box);
    void Type(const QString& text);
    void Show(Page page);
    void MarkOK();
    int TextHeight() const;

    QString text_, title_, value_;
    TextBlock block_;
    QRect field_;
    QRect textBox_;
    Page page_ = Page::Small;
};

} // namespace vk
