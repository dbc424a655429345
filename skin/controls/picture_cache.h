// The skin's pictures, scaled once for each size that they are shown in.
#pragma once

#include "skin/controls/picture_loader.h"
#include "skin/skin.h"

#include <QPixmap>
#include <QWidget>

#include <map>
#include <string>
#include <tuple>

namespace vk {

/// Loading another skin drops everything that is kept.
class PictureCache {
  public:
    explicit PictureCache(const SkinStore& skin) : skin_(skin) {}

    /// A picture of the skin's folder by its name, scaled into `box`. Null when there is none.
    QPixmap Picture(const std::string& name, QSize box, PictureFit fit = PictureFit::Keep);
    /// The part of the skin's background `name` that lies behind `control` when the background is
    /// stretched over the control's screen. The screen is the ancestor that measures
    /// `screenSize`, else the window. Null when there is none.
    QPixmap BackgroundBehind(const std::string& name, const QWidget& control, QSize screenSize);
    /// True when the skin's folder holds a file of this name.
    bool Has(const std::string& name) const;

  private:
    using Key = std::tuple<std::string, int, int, PictureFit>;
    void DropOld();

    const SkinStore& skin_;
    std::map<Key, QPixmap> kept_;
    int generation_ = -1;
};

} // namespace vk
