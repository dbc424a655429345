#include "navigation/screen/area_button.h"

#include <QPainter>

#include <utility>

namespace vk {

AreaButton::AreaButton(const ControlContext& context, std::string name, Pressed pressed,
                       QWidget* parent)
    : TouchButton(context, parent), name_(std::move(name)), pressedPicture_(std::move(pressed)) {
    setObjectName(QString::fromStdString("area" + name_));
    SetCaption(name_);
}

void AreaButton::paintEvent(QPaintEvent* event) {
    if (!InPicture) return TouchButton::paintEvent(event);
    if (!IsHeld()) return;
    const QPixmap picture = pressedPicture_();
    if (!picture.isNull()) QPainter(this).drawPixmap(rect(), picture, geometry());
}

} // namespace vk
