#include "skin/controls/touch_button.h"

#include "skin/controls/looks.h"
#include "skin/controls/plate.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace vk {

namespace {

constexpr double HeldOpacity = 0.55;

} // namespace

TouchButton::TouchButton(const ControlContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
    setFocusPolicy(Qt::NoFocus);
}

void TouchButton::SetPicture(const std::string& name) {
    if (picture_ == name) return;
    if (context_.pictures.Has(picture_)) before_ = picture_;
    picture_ = name;
    update();
}

void TouchButton::SetFace(const QRect& face) {
    face_ = face;
    update();
}

QPixmap TouchButton::FacePicture() {
    const QPixmap picture = context_.pictures.Picture(picture_, Face().size());
    return picture.isNull() ? context_.pictures.Picture(before_, Face().size()) : picture;
}

void TouchButton::SetPressedPicture(const std::string& name) {
    pressedPicture_ = name;
    update();
}

void TouchButton::SetCaption(const std::string& caption) {
    caption_ = caption;
    update();
}

void TouchButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap held =
        pressed_ ? context_.pictures.Picture(pressedPicture_, Face().size()) : QPixmap();
    const QPixmap picture = held.isNull() ? FacePicture() : held;
    if (picture.isNull()) return DrawPlate(painter);
    QRect place = picture.rect();
    place.moveCenter(Face().center());
    if (pressed_ && held.isNull()) painter.setOpacity(HeldOpacity);
    painter.drawPixmap(place, picture);
}

void TouchButton::DrawPlate(QPainter& painter) const {
    if (caption_.empty()) return;
    const SkinData& skin = context_.skin.data();
    PlateLook look;
    look.ground =
        ToQColor(pressed_ ? skin.ListSelectedBackgroundClr : skin.HeadingBarBackgroundClr);
    look.edge = Legible(ToQColor(skin.OutlineBoxClr), GroundWithoutPicture(skin), EdgeContrast);
    look.text = ReadableOn(look.ground);
    DrawCaptionPlate(painter, Face(), ToQString(caption_), ToQFont(skin.clockfont, skin), look);
}

void TouchButton::mousePressEvent(QMouseEvent*) {
    pressed_ = true;
    update();
    if (onPress) context_.commands.Run(whileBusy, onPress);
}

void TouchButton::mouseReleaseEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->position().toPoint());
    const bool clicked = pressed_ && inside;
    const QPointer<TouchButton> alive(this);
    Release(inside);
    if (alive && clicked && onClick) context_.commands.Run(whileBusy, onClick);
}

void TouchButton::hideEvent(QHideEvent*) {
    Release(false);
}

void TouchButton::Release(bool inside) {
    if (!pressed_) return;
    pressed_ = false;
    update();
    if (onRelease) onRelease(inside);
}

} // namespace vk
