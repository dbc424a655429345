#include "video/screen/movie_bar.h"

#include "skin/controls/looks.h"

#include <QPainter>

#include <utility>

namespace vk {

MovieBar::MovieBar(const ControlContext& context, std::string picture, QWidget* parent)
    : QWidget(parent), context_(context), picture_(std::move(picture)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
}

void MovieBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap ground = context_.pictures.Picture(picture_, size(), PictureFit::Stretch);
    if (ground.isNull())
        painter.fillRect(rect(), ToQColor(context_.skin.data().HeadingBarBackgroundClr));
    else
        painter.drawPixmap(0, 0, ground);
}

} // namespace vk
