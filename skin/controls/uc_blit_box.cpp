#include "skin/controls/uc_blit_box.h"

#include "skin/controls/picture_loader.h"

#include <QPainter>

namespace vk {

UCBlitBox::UCBlitBox(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
}

bool UCBlitBox::ShowPic(const std::string& path) {
    path_ = path;
    picture_ = QPixmap::fromImage(LoadPicture(path, size(), PictureFit::Keep));
    update();
    return HasPicture();
}

void UCBlitBox::paintEvent(QPaintEvent*) {
    QRect place = picture_.rect();
    place.moveCenter(rect().center());
    QPainter(this).drawPixmap(place, picture_);
}

void UCBlitBox::resizeEvent(QResizeEvent*) {
    if (!path_.empty()) ShowPic(path_);
}

} // namespace vk
