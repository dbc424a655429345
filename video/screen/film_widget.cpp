#include "video/screen/film_widget.h"

#include "platform/picture_fit.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>

#include <utility>

namespace vk {

FilmWidget::FilmWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void FilmWidget::Show(std::shared_ptr<const FilmPicture> picture) {
    const QRect before = Place();
    picture_ = std::move(picture);
    Place() == before ? update(before) : update();
}

QRect FilmWidget::Place() const {
    if (!picture_ || picture_->width <= 0 || picture_->height <= 0) return {};
    const double shape = picture_->width * picture_->pixelAspect / picture_->height;
    const PixelSize size = FitShape(shape, {width(), height()});
    QRect place(0, 0, size.width, size.height);
    place.moveCenter(rect().center());
    return place & rect();
}

void FilmWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect place = Place();
    for (const QRect& black : event->region().subtracted(place))
        painter.fillRect(black, Qt::black);
    if (!event->region().intersects(place)) return;
    const QImage image(reinterpret_cast<const uchar*>(picture_->pixels), picture_->width,
                       picture_->height, picture_->stride, QImage::Format_RGB32);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, image);
}

void FilmWidget::mousePressEvent(QMouseEvent* event) {
    if (onTouch) onTouch(event->position().toPoint());
}

} // namespace vk
