#include "browser/screen/playlists.h"

#include "browser/screen/playlists_layout.h"
#include "skin/controls/looks.h"
#include "skin/touch_target.h"

#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr int VolumeRepeatMs = 100;
constexpr double HalfWidthFont = 0.75;
constexpr int SlideSteps = 6;
constexpr int SlideStepMs = 10;

// A bar or frame over the background, in the colour of the skin's bars.
void SetBarColour(QWidget& bar, const SkinData& skin) {
    QPalette palette = bar.palette();
    palette.setColor(QPalette::Window, ToQColor(skin.HeadingBarBackgroundClr));
    bar.setPalette(palette);
    bar.setAutoFillBackground(true);
}

template<void (Browser::*Operation)()> void Click(Browser& browser) {
    (browser.*Operation)();
}
template<void (BrowserButtons::*Operation)()> void Click(Browser& browser) {
    (browser.Buttons().*Operation)();
}

} // namespace

const std::vector<playlists::ButtonRow> playlists::BottomRows = {
    {"Image11", "moveback.gif", "Back", Click<&Browser::MoveBack>, &playlists::Always},
    {"Image3", "pgup.gif", "Page up", Click<&Browser::PgUp>, &playlists::Always},
    {"Image4", "pgdn.gif", "Page down", Click<&Browser::PgDn>, &playlists::Always},
    {"Image6", "play.gif", "Play", Click<&BrowserButtons::PlayPause>, &playlists::Browsing},
    {"Image12", "recurse.gif", "All below", Click<&BrowserButtons::ToggleRecurse>,
     &playlists::Browsing},
    {"Image19", "resume.gif", "Resume", Click<&BrowserButtons::Resume>, &playlists::Browsing},
    {"Image15", "fm.gif", "Radio", Click<&Browser::ShowRadio>, &playlists::HasRadio},
    {"imjAdd", "add.gif", "Add", Click<&Browser::ToggleListFocus>, &playlists::Building},
    {"imjRemove", "remove.gif", "Remove", Click<&Browser::ToggleListFocus>, &playlists::Building},
    {"imjSave", "save.gif", "Save", Click<&Browser::SaveList>, &playlists::Building},
    {"Image7", "menu.gif", "More", Click<&BrowserButtons::ToggleToolFrame>, &playlists::Always},
};

const std::vector<playlists::ButtonRow> playlists::ToolRows = {
    {"Image20", "moveahead.gif", "Ahead", Click<&Browser::MoveAhead>, &playlists::Always},
    {"Image9", "vdown.gif", "Quieter", nullptr, &playlists::Always},
    {"Image10", "vup.gif", "Louder", nullptr, &playlists::Always},
    {"Image16", "eject.gif", "Eject", Click<&BrowserButtons::Eject>, &playlists::HasDiscDrive},
    {"Image14", "gps.gif", "Programs", Click<&BrowserButtons::ToggleApplications>,
     &playlists::Browsing},
    {"Image17", "gpsactual.gif", "GPS", Click<&Browser::ShowGPS>, &playlists::HasGPS},
    {"imgDim", "watermark.gif", "Dim", nullptr, &playlists::Always},
};

playlists::playlists(const Needs& needs, QWidget* parent)
    : QWidget(parent), context_(needs.context), UCListBox_(context_, list_, this),
      UCListBox2_(context_, rightList_, this), toolFrame_(this), bottomBar_(this),
      KBFrame(context_, keyboard_, this), lblCurrentFolderStatus(this), ClockBar(this),
      lbLoading(this), focus_(context_, this),
      browser_(needs.browser, {list_, rightList_, text_}, *this),
      volumeTimer_(context_.clock.MakeTimer(
          [this] { context_.commands.Run([this] { (browser_.*heldVolume_)(); }); })) {
    hide();
    UCListBox_.setObjectName(QStringLiteral("UCListBox"));
    lblCurrentFolderStatus.setObjectName(QStringLiteral("lblCurrentFolderStatus"));
    ClockBar.setObjectName(QStringLiteral("ClockBar"));
    lbLoading.setObjectName(QStringLiteral("lbLoading"));
    UCListBox_.onItemClick = [this](int) { browser_.ChooseLeft(); };
    UCListBox2_.setObjectName(QStringLiteral("UCListBox2"));
    UCListBox2_.onItemClick = [this](int) { browser_.ChooseRight(); };
    MakeButtons(BottomRows, &bottomBar_);
    MakeButtons(ToolRows, &toolFrame_);
    MakeButton({"imgHome", "home.gif", "Home", Click<&Browser::GoHome>, &playlists::Always}, this);
    for (const char* ends : {"Image11", "imgHome"})
        buttons_.at(ends)->whileBusy = Commands::When::Interrupt;
    WireVolume("Image9", "vdownsel.gif", &Browser::VolDown);
    WireVolume("Image10", "vupsel.gif", &Browser::VolUp);
    focus_.offered = [this] { return KBFrame.isHidden(); };
    buttons_.at("imgDim")->onClick = [this] { context_.ToggleDim(); };
    KBFrame.onSlide = [this](bool open) { CoverLists(open); };
    toolFrame_.hide();
    lbLoading.setAttribute(Qt::WA_TransparentForMouseEvents); // it may lie over drawn keys
    lbLoading.hide();
    DoLayout();
}

TouchButton& playlists::MakeButton(const ButtonRow& row, QWidget* parent) {
    auto button = std::make_unique<TouchButton>(context_, parent);
    button->setObjectName(QString::fromLatin1(row.name));
    button->SetCaption(row.caption);
    button->SetPicture(row.picture);
    if (const auto click = row.click) button->onClick = [this, click] { click(browser_); };
    return *(buttons_[row.name] = std::move(button));
}

void playlists::MakeButtons(const std::vector<ButtonRow>& rows, QWidget* parent) {
    for (const ButtonRow& row : rows)
        MakeButton(row, parent);
}

void playlists::WireVolume(const char* name, const char* pressed, void (Browser::*change)()) {
    TouchButton& button = *buttons_.at(name);
    button.SetPressedPicture(pressed);
    button.onPress = [this, change] {
        heldVolume_ = change;
        (browser_.*change)();
        volumeTimer_->Start(VolumeRepeatMs);
    };
    button.onRelease = [this](bool) { volumeTimer_->Stop(); };
}

void playlists::DoLayout() {
    const AppState& app = context_.state;
    const PlaylistsLayout layout(app.ScreenWidth, app.ScreenHeight);
    setGeometry(0, 0, app.ScreenWidth, app.ScreenHeight);
    LayoutList(UCListBox_, Building() ? layout.leftList : layout.list);
    LayoutList(UCListBox2_, layout.rightList);
    UCListBox2_.setVisible(Building() && KBFrame.isHidden());
    KBFrame.Place(layout.keyboard);
    LayoutLabels();
    LayoutButtons();
    update();
}

void playlists::LayoutList(UCListBox& list, const QRect& place) {
    list.setGeometry(place);
    list.FontScale = Building() ? HalfWidthFont : 1;
    list.SetiMaxVis(context_.skin.data().playlist);
    if (list.model().Loaded()) list.LoadList();
}

void playlists::LayOut(std::int16_t listMode) {
    if (listMode == listMode_) return;
    listMode_ = listMode;
    DoLayout();
}

// A frame as well as the rules of the selected row: those may be switched off.
void playlists::ShowFocus(bool right) {
    UCListBox_.ShowFocusBar = !right;
    UCListBox2_.ShowFocusBar = right;
    UCListBox_.ReDrawList();
    UCListBox2_.ReDrawList();
    update();
}

void playlists::LayoutLabels() {
    const SkinData& skin = context_.skin.data();
    const PlaylistsLayout layout(width(), height());
    lblCurrentFolderStatus.setGeometry(layout.title);
    lblCurrentFolderStatus.SetLook(skin.headingbarfont, skin.HeadingBarForegroundClr, skin);
    lblCurrentFolderStatus.SetAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lblCurrentFolderStatus.SetWrap(true);
    lblCurrentFolderStatus.SetShrink(0.6);
    ClockBar.setGeometry(layout.clock);
    ClockBar.SetLook(skin.clockfont, skin.ClockForegroundClr, skin);
    ClockBar.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ClockBar.SetShrink(0.5);
    ClockBar.setVisible(context_.settings.ShowClock);
    lbLoading.setGeometry(layout.loading);
    lbLoading.SetLook(skin.headingbarfont, skin.HeadingBarForegroundClr, skin);
    lbLoading.SetGround(ToQColor(skin.HeadingBarBackgroundClr), layout.button / 6);
    lbLoading.SetWrap(true);
    lbLoading.SetShrink(0.6);
}

std::vector<TouchButton*> playlists::Offered(const std::vector<ButtonRow>& rows) {
    std::vector<TouchButton*> offered;
    for (const ButtonRow& row : rows) {
        TouchButton* button = buttons_.at(row.name).get();
        const bool shown = (this->*row.offered)();
        button->setVisible(shown);
        if (shown) offered.push_back(button);
    }
    return offered;
}

void playlists::LayoutButtons() {
    const PlaylistsLayout layout(width(), height());
    const QRect touched(layout.home.left(), 0, layout.home.width(),
                        std::max(layout.topBar.height(), TouchSide(height())));
    buttons_.at("imgHome")->setGeometry(touched);
    buttons_.at("imgHome")->SetFace(layout.home.translated(-touched.topLeft()));
    bottomBar_.setGeometry(layout.bottomBar);
    SetBarColour(bottomBar_, context_.skin.data());
    const auto bottom = Offered(BottomRows);
    const auto places = layout.BottomButtons(static_cast<int>(bottom.size()));
    for (std::size_t i = 0; i < bottom.size(); ++i)
        bottom[i]->setGeometry(places[i].translated(0, -layout.bottomBar.top()));
    const auto tools = Offered(ToolRows);
    toolFrame_.setGeometry(layout.ToolFrame(static_cast<int>(tools.size())));
    SetBarColour(toolFrame_, context_.skin.data());
    for (std::size_t i = 0; i < tools.size(); ++i)
        tools[i]->setGeometry(layout.ToolButton(static_cast<int>(i)));
}

void playlists::SetTitle(const std::string& text) {
    lblCurrentFolderStatus.SetText(text);
}

void playlists::ShowLoading(const std::string& text) {
    lbLoading.SetText(text);
    lbLoading.show();
    lbLoading.repaint(); // the list may take long from here
}

void playlists::SetButton(BrowserButton button, const std::string& picture) {
    static const std::map<BrowserButton, const char*> names = {
        {BrowserButton::PlayPause, "Image6"},
        {BrowserButton::ToolFrame, "Image7"},
        {BrowserButton::Recurse, "Image12"},
        {BrowserButton::Applications, "Image14"},
        {BrowserButton::Radio, "Image15"}};
    buttons_.at(names.at(button))->SetPicture(picture);
}

// The frame comes out from behind the bottom bar and goes back there.
void playlists::ShowToolFrame(bool open) {
    const int shut = bottomBar_.y();
    const int travel = toolFrame_.height();
    const QRect track(toolFrame_.x(), shut - travel, toolFrame_.width(), travel);
    toolFrame_.show();
    for (int step = 1; step <= SlideSteps; ++step) {
        const int out = open ? step : SlideSteps - step;
        toolFrame_.move(toolFrame_.x(), shut - travel * out / SlideSteps);
        repaint(track);
        context_.clock.Sleep(SlideStepMs);
    }
    toolFrame_.setVisible(open);
}

// The keyboard stands in the place of the lists.
void playlists::CoverLists(bool open) {
    lbLoading.raise();
    UCListBox_.setVisible(!open);
    UCListBox2_.setVisible(!open && Building());
    update();
}

void playlists::ShowAtFront() {
    LayoutButtons(); // tuners and screens may have come since
    show();
    raise();
}

void playlists::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) {
        context_.commands.Run([this, tick] { browser_.MouseWheel(tick); });
    });
}

void playlists::paintEvent(QPaintEvent*) {
    const SkinData& skin = context_.skin.data();
    QPainter painter(this);
    const QPixmap background =
        context_.pictures.Picture(skin.playlist, size(), PictureFit::Stretch);
    if (background.isNull())
        painter.fillRect(rect(), GroundWithoutPicture(skin));
    else
        painter.drawPixmap(0, 0, background);
    painter.fillRect(PlaylistsLayout(width(), height()).topBar,
                     ToQColor(skin.HeadingBarBackgroundClr));
    if (Building()) DrawFocusFrame(painter);
}

void playlists::DrawFocusFrame(QPainter& painter) const {
    const PlaylistsLayout layout(width(), height());
    const bool right = UCListBox2_.ShowFocusBar;
    const QRect list = right ? layout.rightList : layout.leftList;
    const int frame = layout.frame;
    painter.fillRect(list.adjusted(-frame, -frame, frame, frame),
                     Legible(ToQColor(context_.skin.data().ListSelectedBackgroundClr),
                             GroundWithoutPicture(context_.skin.data()), 3));
}

} // namespace vk
