#include "hosting/screen/ext_app_tools.h"

#include "platform/qt/qt_foreign_windows.h"
#include "platform/qt/virtual_keys.h"
#include "skin/controls/looks.h"
#include "skin/touch_target.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace vk {

namespace {

constexpr double BarShare = 0.17; // of the screen's height, as the bars of the other screens
constexpr int VolumeRepeatMs = 100;

} // namespace

/// The title stands behind the first `AheadOfTitle` of them.
struct ExtAppTools::Face {
    const char *name, *picture, *caption;
    void (ToolBar::*click)();
};

const ExtAppTools::Face ExtAppTools::Faces[] = {
    {"imgSwap", "lists.gif", "Lists", &ToolBar::imgSwap_Click},
    {"imgBack", "rw.gif", "<<", &ToolBar::MoveBack},
    {"imgForward", "ff.gif", ">>", &ToolBar::MoveAhead},
    {"imgVolDown", "vdown.gif", "-", nullptr},
    {"imgVolUp", "vup.gif", "+", nullptr},
    {"imgMoveMe", "moveme.gif", "Move", &ToolBar::imgMoveMe_Click},
    {"imgCloseApp", "closeapp.gif", "Close", &ToolBar::doquit},
};

ExtAppTools::ExtAppTools(const ControlContext& context, ToolBar::Needs needs)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::BypassWindowManagerHint),
      context_(context), UCST_(context, this), focus_(context, *this),
      volumeTimer_(context.clock.MakeTimer(
          [this] { context_.commands.Run([this] { (bar_.*heldVolume_)(); }); })),
      bar_(std::move(needs), *this) {
    setObjectName(QString::fromLatin1(ToolBarName));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    UCST_.setObjectName(QStringLiteral("UCST"));
    focus_.onFocus = [this](bool on) {
        if (!on) bar_.ButtonsLeft();
    };
    MakeButtons();
    DoLayout();
}

ExtAppTools::~ExtAppTools() = default;

void ExtAppTools::MakeButtons() {
    for (const Face& face : Faces) {
        auto button = std::make_unique<TouchButton>(context_, this);
        button->setObjectName(QString::fromLatin1(face.name));
        button->SetPicture(face.picture);
        button->SetCaption(face.caption);
        if (const auto click = face.click) button->onClick = [this, click] { (bar_.*click)(); };
        buttons_.push_back(std::move(button));
    }
    HoldVolume(*buttons_[3], &ToolBar::VolDown);
    HoldVolume(*buttons_[4], &ToolBar::VolUp);
    buttons_.back()->whileBusy = Commands::When::Interrupt;
}

void ExtAppTools::HoldVolume(TouchButton& button, void (ToolBar::*change)()) {
    button.SetPressedPicture(change == &ToolBar::VolUp ? "vupsel.gif" : "vdownsel.gif");
    button.onPress = [this, change] {
        heldVolume_ = change;
        (bar_.*change)();
        volumeTimer_->Start(VolumeRepeatMs);
    };
    button.onRelease = [this](bool) { volumeTimer_->Stop(); };
}

// Both groups of buttons at their end of the bar, the title in the room between them.
void ExtAppTools::DoLayout() {
    const AppState& state = context_.state;
    const int wide = state.ScreenWidth, screen = state.ScreenHeight;
    const int high = std::max(TouchSide(screen), static_cast<int>(screen * BarShare));
    setGeometry(0, top_ ? 0 : screen - high, wide, high);
    constexpr int Count = static_cast<int>(std::size(Faces)), Right = 2;
    const int cell = std::clamp(wide * 4 / 5 / Count, TouchSide(screen), high);
    for (int i = 0; i < Count; ++i) {
        const int left = i < Count - Right ? i * cell : wide - (Count - i) * cell;
        buttons_[static_cast<std::size_t>(i)]->setGeometry(left, 0, cell, high);
    }
    const SkinData& skin = context_.skin.data();
    UCST_.setGeometry((Count - Right) * cell, 0, wide - Count * cell, high);
    UCST_.ScrollText(UCST_.Text(), skin.HeadingBarForegroundClr,
                     ShadowFor(ToQColor(skin.HeadingBarForegroundClr)), skin.headingbarfont);
    update();
}

void ExtAppTools::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap ground = context_.pictures.Picture("bottombar.jpg", size(), PictureFit::Stretch);
    if (ground.isNull())
        painter.fillRect(rect(), ToQColor(context_.skin.data().HeadingBarBackgroundClr));
    else
        painter.drawPixmap(0, 0, ground);
}

void ExtAppTools::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) { context_.commands.Run([&] { bar_.Wheel(tick); }); });
}

void ExtAppTools::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(onKey && onKey(VirtualKeyText(*event), event->isAutoRepeat()));
}

void ExtAppTools::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    bar_.KeysUp();
    if (onKeyUp) onKeyUp(VirtualKeyText(*event));
}

// The logic's view -------------------------------------------------------------------------------

void ExtAppTools::ShowAtFront() {
    show();
    raise();
}

void ExtAppTools::HideBar() {
    focus_.Leave();
    hide();
}

void ExtAppTools::ShowText(const std::string& text) {
    if (text != UCST_.Text()) UCST_.ScrollText(text);
}

void ExtAppTools::MoveTo(bool top) {
    top_ = top;
    move(0, top_ ? 0 : context_.state.ScreenHeight - height());
    raise();
}

void ExtAppTools::EnterButtons() {
    ForceInput(*this);
    setFocus();
    if (enterButtons) enterButtons();
}

// Later: the display is telling, and what is touched may let events run.
void ExtAppTools::TakeTouch(WindowHandle window, int x, int y) {
    if (!isVisible() || window != static_cast<WindowHandle>(winId())) return;
    const QPoint at = mapFromGlobal(QPoint(x, y));
    QWidget* const touched = childAt(at);
    if (!touched) return;
    const auto mouse = [&](QEvent::Type type, Qt::MouseButtons down) {
        return new QMouseEvent(type, touched->mapFrom(this, at), QPoint(x, y), Qt::LeftButton, down,
                               Qt::NoModifier);
    };
    QCoreApplication::postEvent(touched, mouse(QEvent::MouseButtonPress, Qt::LeftButton));
    QCoreApplication::postEvent(touched, mouse(QEvent::MouseButtonRelease, Qt::NoButton));
}

void ExtAppTools::BarButtons::Say(const std::string& text) {
    if (!text.empty()) bar_.bar_.Say("Hold Escape to get into the buttons");
}

} // namespace vk
