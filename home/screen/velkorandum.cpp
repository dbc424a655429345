#include "home/screen/velkorandum.h"

#include "skin/controls/looks.h"
#include "skin/touch_target.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int BarShare = 20;   // the clock bar's height is the screen's divided by this
constexpr int ButtonShare = 9; // and a bar button's width likewise
constexpr int BannerShare = 8; // two lines, which lie between the pictures of two rows of icons
constexpr int PlateRadius = 14;

} // namespace

velkorandum::velkorandum(const ControlContext& context, const MainMenu::Needs& needs,
                         QWidget* parent)
    : QWidget(parent), context_(context), menu_(needs, *this), Frame1(this), ClockBar(this),
      Label6(this), imgLoading(this), focus_(context, this),
      canDim_(static_cast<bool>(needs.doors.setDimmer)) {
    Image1 = MakeButton("quit.gif", "Quit", [this] { menu_.Image1_Click(); });
    Image2 = MakeButton("watermark.gif", "Dim", [this] { menu_.Image2_Click(); });
    Image3 = MakeButton("cpl.jpg", "Set", [this] { menu_.ClockBar_Click(); });
    ClockBar.OnClick(context_.commands, [this] { menu_.ClockBar_Click(); });
    focus_.onFocus = [this](bool on) { ShowBarButtons(on || !context_.settings.CleanMenu); };
    hide();
    DoLayout();
}

velkorandum::~velkorandum() = default;

QSize velkorandum::ScreenSize() const {
    return {std::max(1, context_.state.ScreenWidth), std::max(1, context_.state.ScreenHeight)};
}

std::unique_ptr<TouchButton> velkorandum::MakeButton(const char* picture, const char* caption,
                                                     std::function<void()> onClick) {
    auto button = std::make_unique<TouchButton>(context_, this);
    button->SetCaption(caption);
    button->SetPicture(picture);
    button->onClick = std::move(onClick);
    return button;
}

void velkorandum::ShowAtFront() {
    setGeometry(QRect(QPoint(), ScreenSize()));
    show();
    raise();
}

void velkorandum::DoLayout() {
    const QSize size = ScreenSize();
    setGeometry(QRect(QPoint(), size));
    Frame1.setGeometry(rect());
    Frame1.lower();
    background_ =
        context_.pictures.Picture(context_.skin.data().mainmenu, size, PictureFit::Stretch);
    LayOutBar();
    LayOutBanner();
    if (context_.skin.Generation() != iconGeneration_ && !menu_.Icons().empty()) {
        const int selected = menu_.CurrentSelection;
        menu_.LoadSelections();
        menu_.CurrentSelection = selected;
        menu_.Update(selected, false);
    }
    update();
}

// The bar is low: what is touched of it reaches up as far as the skin's icons leave room.
int velkorandum::TouchedAbove(int barTop) const {
    int top = height() - TouchSide(height());
    for (const auto& icon : icons_)
        if (icon->geometry().bottom() < barTop) top = std::max(top, icon->geometry().bottom() + 1);
    return std::min(top, barTop);
}

void velkorandum::LayOutBar() {
    const SkinData& skin = context_.skin.data();
    const int tall = height() / BarShare;
    const int button = width() / ButtonShare;
    const int top = TouchedAbove(height() - tall);
    const int touched = height() - top;
    ClockBar.setGeometry(0, top, width(), touched);
    ClockBar.SetFace({0, touched - tall, width(), tall});
    ClockBar.SetMargin(canDim_ ? 2 * button : button);
    ClockBar.SetLook(skin.clockfont, skin.ClockForegroundClr, skin);
    ClockBar.SetGround(ToQColor(skin.ClockBackgroundClr));
    ClockBar.SetShrink(0.5);
    ClockBar.setVisible(context_.settings.ShowClock);
    Image3->setGeometry(0, top, button, touched);
    Image2->setGeometry(width() - 2 * button, top, button, touched);
    Image1->setGeometry(width() - button, top, button, touched);
    ShowBarButtons(!context_.settings.CleanMenu);
    for (TouchButton* image : {Image1.get(), Image2.get(), Image3.get()}) {
        image->SetFace({0, touched - tall, button, tall});
        image->raise();
    }
}

void velkorandum::ShowBarButtons(bool shown) {
    Image1->setVisible(shown);
    Image3->setVisible(shown);
    Image2->setVisible(shown && canDim_);
}

void velkorandum::LayOutBanner() {
    const SkinData& skin = context_.skin.data();
    Label6.SetLook(skin.Titlefont, skin.HeadingBarForegroundClr, skin);
    Label6.SetGround(ToQColor(skin.HeadingBarBackgroundClr), PlateRadius);
    Label6.SetWrap(true);
    Label6.SetShrink(0.5);
    const QSize size(width() / 2, height() / BannerShare);
    Label6.setGeometry(QRect(rect().center() - QPoint(size.width() / 2, size.height() / 2), size));
    imgLoading.setGeometry(rect());
    imgLoading.setAlignment(Qt::AlignCenter);
    for (QWidget* part : {static_cast<QWidget*>(&imgLoading), static_cast<QWidget*>(&Label6)}) {
        part->setAttribute(Qt::WA_TransparentForMouseEvents); // it may stand there for minutes
        part->raise();
    }
}

void velkorandum::ShowIcons() {
    if (context_.skin.Generation() == iconGeneration_ && icons_.size() == menu_.Icons().size()) {
        for (const auto& icon : icons_)
            icon->SetSelected(false);
        return;
    }
    iconGeneration_ = context_.skin.Generation();
    icons_.clear();
    for (const MenuIconData& iconData : menu_.Icons()) {
        auto icon = std::make_unique<MenuIcon>(context_, iconData, &Frame1);
        icon->Place(ScreenSize());
        const int index = static_cast<int>(icons_.size()) + 1;
        icon->onClick = [this, index] { menu_.menuicon_Click(index); };
        icon->show();
        icons_.push_back(std::move(icon));
    }
    LayOutBar();
}

void velkorandum::DrawIcon(int index, bool selected) {
    if (index < 1 || static_cast<std::size_t>(index) > icons_.size()) return;
    MenuIcon& icon = *icons_[static_cast<std::size_t>(index) - 1];
    icon.SetSelected(selected);
    icon.repaint();
}

void velkorandum::ShowFrame(bool shown) {
    Frame1.setVisible(shown);
}

void velkorandum::SetClockBar(const std::string& text) {
    ClockBar.SetText(text);
}

void velkorandum::ShowBanner(const std::string& text) {
    imgLoading.hide();
    Label6.SetText(text);
    Label6.setVisible(!text.empty());
    if (!text.empty() && isVisible()) Label6.repaint();
}

void velkorandum::ShowLoading(const std::string& text) {
    imgLoading.setPixmap(context_.pictures.Picture("loading.jpg", size(), PictureFit::Within));
    imgLoading.setVisible(!imgLoading.pixmap(Qt::ReturnByValue).isNull());
    Label6.SetText(text);
    Label6.show();
    if (isVisible()) repaint(imgLoading.geometry());
}

void velkorandum::RefreshClockColours() {
    ClockBar.SetColour(ToQColor(context_.skin.data().ClockForegroundClr));
}

void velkorandum::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (background_.isNull())
        painter.fillRect(rect(), GroundWithoutPicture(context_.skin.data()));
    else
        painter.drawPixmap(0, 0, background_);
    // The icons, children of this screen, are painted in the same pass.
    if (onFirstPaint && !icons_.empty())
        QTimer::singleShot(0, this, std::exchange(onFirstPaint, nullptr));
}

void velkorandum::mousePressEvent(QMouseEvent* event) {
    context_.commands.Run([&] { menu_.PressedAt(event->pos().x(), event->pos().y()); });
}

void velkorandum::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) {
        context_.commands.Run([&] { tick > 0 ? menu_.MoveUp() : menu_.MoveDown(); });
    });
}

} // namespace vk
