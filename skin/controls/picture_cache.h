// The skin's pictures, scaled once for each size that they are shown in.
#pragma once

#include "skin/controls/picture_loader.h"
#include "skin/skin.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <map>
#include <set>
#include <string>
#include <tuple>

namespace vk {

/// A part of a picture; it shares the picture's memory.
struct PicturePart {
    QPixmap picture;
    QRect part; ///< pixels of the picture
    bool isNull() const { return picture.isNull(); }
    void Draw(QPainter& painter, QPoint at) const { painter.drawPixmap(at, picture, part); }
};

/// Loading another skin drops everything that is kept.
class PictureCache {
  public:
    explicit PictureCache(const SkinStore& skin) : skin_(skin) {}

    /// A picture of the skin's folder by its name, scaled into `box`. Null when there is none,
    /// which the log tells once.
    QPixmap Picture(const std::string& name, QSize box, PictureFit fit = PictureFit::Keep);
    /// The part of the skin's background `name` that lies behind `control` when the background is
    /// stretched over the control's screen. The screen is the ancestor that measures
    /// `screenSize`, else the window. Null when there is none.
    PicturePart BackgroundBehind(const std::string& name, const QWidget& control, QSize screenSize);
    /// True when the skin's folder holds a file of this name.
    bool Has(const std::string& name) const;

  private:
    using Key = std::tuple<std::string, int, int, PictureFit>;
    void DropOld();
    void TellLacking(const std::string& name);

    const SkinStore& skin_;
    std::map<Key, QPixmap> kept_;
    std::set<std::string> lacking_; ///< told already
    int generation_ = -1;
};

} // namespace vk
