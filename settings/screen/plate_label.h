// A plate of a settings page on the screen.
#pragma once

#include "settings/pages/plates.h"
#include "settings/screen/row_look.h"
#include "skin/controls/shaded_label.h"

#include <QImage>
#include <QRect>

#include <string>

namespace vk {

/// Draws itself anew when something of it has changed.
class PlateLabel : public ShadedLabel {
  public:
    explicit PlateLabel(QWidget* parent);

    void Show(const Plate& plate, const QRect& box, bool marked, const RowLook& look);
    /// The skin may have changed: the next `Show` dresses it anew.
    void Forget() { known_ = false; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void TakePicture(const PagePicture& picture);
    void DrawPicture();
    void ShowPreview(const std::string& path, QSize box);
    /// What decides on the look.
    struct State {
        bool button, marked, usable, lit;
        bool operator==(const State&) const = default;
    };
    State state_ = {};
    bool known_ = false;
    int percent_ = -1;
    std::string previewFile_;
    QImage preview_;
    QImage picture_;
    QColor bar_, ground_;
};

} // namespace vk
