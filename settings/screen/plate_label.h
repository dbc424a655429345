// A plate of a settings page on the screen.
#pragma once

#include "settings/pages/plates.h"
#include "settings/screen/row_look.h"
#include "skin/controls/shaded_label.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace vk {

/// Draws itself anew when something of it has changed.
class PlateLabel : public ShadedLabel {
  public:
    explicit PlateLabel(QWidget* parent);

    void Show(const Plate& plate, const QRect& box, bool marked, const RowLook& look);
    /// In which its text fits by itself, pixels.
    int TextSize() const { return textSize_; }
    /// In cells of the board: equal ones differ by a pixel on the screen.
    std::pair<int, int> Shape() const { return shape_; }
    /// The skin may have changed: the next `Show` dresses it anew.
    void Forget() { known_ = false; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void MeasureText(const Plate& plate);
    void TakePicture(const PagePicture& picture);
    void DrawPicture();
    void DrawLog();
    void ShowPreview(const std::string& path, QSize box);
    /// What decides on the look.
    struct State {
        bool button, marked, usable, lit;
        bool operator==(const State&) const = default;
    };
    State state_ = {};
    bool known_ = false;
    /// What `textSize_` was measured for.
    std::tuple<std::string, std::string, int, int, bool> measured_;
    int textSize_ = 0;
    std::pair<int, int> shape_;
    int percent_ = -1;
    std::function<void(int lines)> scroll_; ///< of a log
    std::function<std::string()> read_;     ///< its text
    int dragFrom_ = 0;                      ///< where the finger was when it last moved a line
    QFont logFont_;
    QColor logColour_;
    std::string previewFile_;
    QImage preview_;
    QImage picture_;
    QColor bar_, ground_;
};

/// Plates of one shape, which stand side by side, get texts of one size; where one text is much
/// longer than the others, it alone becomes smaller.
void ShareTextSizes(const std::vector<PlateLabel*>& shown);

} // namespace vk
