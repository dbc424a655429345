#include "skin/controls/picture_cache.h"

#include "platform/files.h"

namespace vk {

void PictureCache::DropOld() {
    if (generation_ == skin_.Generation()) return;
    kept_.clear();
    lacking_.clear();
    generation_ = skin_.Generation();
}

QPixmap PictureCache::Picture(const std::string& name, QSize box, PictureFit fit) {
    if (name.empty() || box.isEmpty()) return {};
    DropOld();
    const Key key{name, box.width(), box.height(), fit};
    const auto found = kept_.find(key);
    if (found != kept_.end()) return found->second;
    const QPixmap picture = QPixmap::fromImage(LoadPicture(skin_.PicturePath(name), box, fit));
    if (picture.isNull()) TellLacking(name);
    return kept_[key] = picture;
}

void PictureCache::TellLacking(const std::string& name) {
    if (lacking_.insert(name).second) skin_.TellLacking(name);
}

PicturePart PictureCache::BackgroundBehind(const std::string& name, const QWidget& control,
                                           QSize screenSize) {
    const QWidget* screen = &control;
    while (screen->parentWidget() && (screen == &control || screen->size() != screenSize))
        screen = screen->parentWidget();
    return {Picture(name, screen->size(), PictureFit::Stretch),
            QRect(control.mapTo(screen, QPoint(0, 0)), control.size())};
}

bool PictureCache::Has(const std::string& name) const {
    return !name.empty() && FileExists(skin_.PicturePath(name));
}

} // namespace vk
