// Where the parts of a GPS skin stand on the screen.
#pragma once

#include "navigation/isn_skin.h"

#include <QRect>
#include <QSize>

namespace vk {

/// All of it follows from the skin and the size of the screen, in pixels.
class IsnLayout {
  public:
    IsnLayout() = default;
    IsnLayout(const IsnSkin& skin, QSize screen);

    /// What a box of the skin is on the screen, within it.
    QRect Place(const IsnBox& box) const;
    QRect Place(const IsnSkin::Label& label) const;
    /// What lengths of the skin are multiplied with downwards; 0 for one without its size.
    float ScaleY() const { return scaleY_; }
    /// Points on the screen.
    int FontSize(const IsnFont& font) const;
    /// The map, while something plays or nothing does. Without any .isn it fills the screen but for
    /// a strip at its foot, which is touched to leave.
    QRect Map(bool audio) const;
    /// Of search and messages.
    QRect Bar() const;

  private:
    QSize screen_;
    const IsnSkin* skin_ = nullptr;
    float scaleX_ = 0, scaleY_ = 0; ///< 0 for a skin that does not tell its size
};

} // namespace vk
