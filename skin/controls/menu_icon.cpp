#include "skin/controls/menu_icon.h"

#include "skin/controls/looks.h"
#include "skin/controls/plate.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace vk {

namespace {

int Part(double fraction, int whole) {
    return static_cast<int>(std::lround(fraction * whole));
}

} // namespace

MenuIcon::MenuIcon(const ControlContext& context, const MenuIconData& icon, QWidget* parent)
    : QWidget(parent), LoadedFunction(icon.function), SelectedPic(icon.iconpicturesel),
      UnSelectedPic(icon.iconpictureunsel), of_left(icon.of_left), of_right(icon.of_right),
      of_above(icon.of_above), of_below(icon.of_below), context_(context), data_(icon) {
    setFocusPolicy(Qt::NoFocus);
}

void MenuIcon::Place(QSize screen) {
    setGeometry(Part(data_.iconleft, screen.width()), Part(data_.icontop, screen.height()),
                Part(data_.iconwidth, screen.width()), Part(data_.iconheight, screen.height()));
}

void MenuIcon::SetSelected(bool selected) {
    if (selected_ == selected) return;
    selected_ = selected;
    update();
}

void MenuIcon::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap picture = context_.pictures.Picture(selected_ ? SelectedPic : UnSelectedPic,
                                                      size(), PictureFit::Stretch);
    if (picture.isNull())
        DrawPlate(painter);
    else
        painter.drawPixmap(0, 0, picture);
}

void MenuIcon::DrawPlate(QPainter& painter) const {
    const SkinData& skin = context_.skin.data();
    QFont font = ToQFont(skin.Titlefont, skin);
    const QColor plain = ToQColor(skin.HeadingBarBackgroundClr);
    const QColor chosen = ToQColor(skin.ListSelectedBackgroundClr);
    PlateLook look;
    // A skin may leave both colours out; the selection has to show all the same.
    look.ground = !selected_ ? plain : chosen == plain ? ReadableOn(plain) : chosen;
    look.edge = Legible(ToQColor(skin.OutlineBoxClr), GroundWithoutPicture(skin), EdgeContrast);
    look.text = ReadableOn(look.ground);
    DrawCaptionPlate(painter, rect(), ToQString(data_.name), font, look);
}

void MenuIcon::mousePressEvent(QMouseEvent*) {
    pressed_ = true;
}

void MenuIcon::mouseReleaseEvent(QMouseEvent* event) {
    const bool clicked = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    if (clicked && onClick) context_.commands.Run(onClick);
}

} // namespace vk
