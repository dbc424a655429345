#include "skin/controls/uc_osk.h"

#include <QMouseEvent>

namespace vk {

namespace {

constexpr int BlinkMs = 150;
constexpr std::int32_t White = 0xFFFFFF;

} // namespace

UCOSK::UCOSK(const ControlContext& context, KeyboardModel& model, QWidget* parent)
    : QWidget(parent), context_(context), model_(model),
      blink_(context.clock.MakeTimer([this] { EndBlink(); })) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    model_.onKeyShown = [this](int index) { Blink(index); };
    model_.onChange = [this] { update(); };
    UseSkin();
}

UCOSK::~UCOSK() {
    model_.onKeyShown = nullptr;
    model_.onChange = nullptr;
}

void UCOSK::UseSkin() {
    const SkinData& skin = context_.skin.data();
    OSKProperties look = properties_;
    look.SearchTextFontName = skin.Listtextfont.name;
    look.SearchTextFontbold = skin.Listtextfont.bold;
    look.SearchTextFontItalic = skin.Listtextfont.italic;
    look.KeyFontName = skin.headingbarfont.name;
    look.KeyFontBold = skin.headingbarfont.bold;
    look.KeyFontItalic = skin.headingbarfont.italic;
    look.KeyFontColor = skin.OSKTextClr;
    look.SelectionBoxClr = skin.OSKSelBoxClr;
    look.BackColor = skin.OSKBGClr;
    look.SearchFontColor = skin.OSKSearchTextClr;
    SetProperties(look);
}

void UCOSK::SetProperties(const OSKProperties& properties) {
    properties_ = properties;
    if (properties_.SelectionBoxClr.value == 0) properties_.SelectionBoxClr = {White};
    setEnabled(properties_.Enabled);
    update();
}

void UCOSK::UCResize() {
    model_.UCResize(ScaleWidth(), ScaleHeight());
}

void UCOSK::resizeEvent(QResizeEvent*) {
    UCResize();
}

int UCOSK::KeyAt(QPoint point) const {
    return model_.KeyAt(point.x() - ScaleLeft(), point.y() - ScaleTop());
}

void UCOSK::mousePressEvent(QMouseEvent* event) {
    held_ = KeyAt(event->position().toPoint());
    update();
}

void UCOSK::mouseReleaseEvent(QMouseEvent* event) {
    const int key = KeyAt(event->position().toPoint());
    const bool pressed = key >= 0 && key == held_;
    held_ = -1;
    update();
    if (pressed) context_.commands.Run([this, key] { model_.KeyClick(key); });
}

void UCOSK::hideEvent(QHideEvent*) {
    held_ = -1;
    EndBlink();
}

void UCOSK::Blink(int index) {
    lit_ = index;
    blink_->Start(BlinkMs);
    update();
}

void UCOSK::EndBlink() {
    lit_ = -1;
    blink_->Stop();
    update();
}

} // namespace vk
