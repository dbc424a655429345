#include "playback/screen/playmp3.h"

#include "skin/controls/looks.h"
#include "skin/touch_target.h"

#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr double SmallestText = 0.5; ///< how far a label may shrink its text before it is cut
constexpr double SmallestClock = 0.8;

struct ButtonFace {
    TouchButtonId id;
    const char* name;
    const char* picture;
    const char* pressed; ///< "" where the logic shows the press
    const char* caption; ///< shown when the skin lacks the picture
};

constexpr ButtonFace Faces[] = {
    {TouchButtonId::DoQuit, "TSdoQuitBtn", "main.gif", "", "Menu"},
    {TouchButtonId::Swap, "TSswmpBtn", "lists.gif", "", "Lists"},
    {TouchButtonId::Rewind, "TSRewindBtn", "rw.gif", "", "<<"},
    {TouchButtonId::RunOk, "TSRunOkBtn", "play.gif", "playsel.gif", "Play"},
    {TouchButtonId::Pause, "TSPauseBtn", "pause.gif", "pausesel.gif", "Pause"},
    {TouchButtonId::FastForward, "TSFastForwardBtn", "ff.gif", "", ">>"},
    {TouchButtonId::VolumeDown, "TSVolDownBtn", "vdown.gif", "", "-"},
    {TouchButtonId::VolumeUp, "TSVolUpBtn", "vup.gif", "", "+"},
    {TouchButtonId::Shuffle, "TSshuffleBtn", "shuffle.gif", "", "Shuffle"},
    {TouchButtonId::AddFavorite, "TSAddFavBtn", "addfav.gif", "addfavsel.gif", "+ Fav"},
    {TouchButtonId::Source, "TSRadio2MP3Btn", "player.gif", "", "Source"},
    {TouchButtonId::GPS, "TSGPSbtn", "gpsactual.gif", "", "GPS"},
    {TouchButtonId::ExtApps, "TSextAppBtn", "gps.gif", "", "Programs"},
    {TouchButtonId::PageUp, "TSPageUpBtn", "pgup.gif", "pgupsel.gif", "Page up"},
    {TouchButtonId::PageDown, "TSPageDownBtn", "pgdn.gif", "pgdnsel.gif", "Page down"},
    {TouchButtonId::Mute, "TSMuteBtn", "mute.gif", "", "Mute"},
    {TouchButtonId::Vis, "TSVisBtn", "vis.gif", "", "Visuals"},
    {TouchButtonId::Dim, "TSDimBtn", "watermark.gif", "", "Dim"},
    {TouchButtonId::PopUpMenu, "TSPopUpMenuBtn", "menu.gif", "", "..."},
};

TouchButtonId IdOf(PlayerButton button) {
    switch (button) {
    case PlayerButton::Rewind:
        return TouchButtonId::Rewind;
    case PlayerButton::FastForward:
        return TouchButtonId::FastForward;
    case PlayerButton::Pause:
        return TouchButtonId::Pause;
    case PlayerButton::VolumeDown:
        return TouchButtonId::VolumeDown;
    case PlayerButton::VolumeUp:
        return TouchButtonId::VolumeUp;
    case PlayerButton::Source:
        return TouchButtonId::Source;
    case PlayerButton::Shuffle:
        break;
    }
    return TouchButtonId::Shuffle;
}

} // namespace

playmp3::playmp3(const ControlContext& context, AudioPlayer::Needs needs, QWidget* parent)
    : QWidget(parent), context_(context),
      layout_(context.state.ScreenWidth, context.state.ScreenHeight), Frame1_(this),
      lbPlayListTitle_(&Frame1_), Vol_(&Frame1_), Label1_(&Frame1_), artistlabel_(&Frame1_),
      TrackTimeLabel_(&Frame1_), lblBitRate_(&Frame1_), lblShuffle_(&Frame1_),
      UCST_(context, &Frame1_), UCListBox_(context, rows_, &Frame1_), imgCoverArt_(&Frame1_),
      frmUpperBar_(&Frame1_), lbLoading_(&Frame1_), focus_(context, this),
      player_(std::move(needs), rows_, *this) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    NameControls();
    MakeButtons();
    ConnectList();
    TrackTimeLabel_.OnClick(context_.commands, [this] { player_.TrackTimeLabel_Click(); });
    lblShuffle_.SetText("Shuffle");
    lblShuffle_.hide();
    Vol_.hide();
    lbLoading_.hide();
    imgCoverArt_.hide();
    imgCoverArt_.setAlignment(Qt::AlignCenter);
    hide();
    DoLayout();
}

void playmp3::NameControls() {
    setObjectName("playmp3");
    const std::pair<QWidget*, const char*> names[] = {
        {&Frame1_, "Frame1"},
        {&lbPlayListTitle_, "lbPlayListTitle"},
        {&Vol_, "Vol"},
        {&Label1_, "Label1"},
        {&UCST_, "UCST"},
        {&artistlabel_, "artistlabel"},
        {&TrackTimeLabel_, "TrackTimeLabel"},
        {&lblBitRate_, "lblBitRate"},
        {&lblShuffle_, "lblShuffle"},
        {&UCListBox_, "UCListBox"},
        {&imgCoverArt_, "imgCoverArt"},
        {&frmUpperBar_, "frmUpperBar"},
        {&lbLoading_, "lbLoading"},
    };
    for (const auto& [control, name] : names)
        control->setObjectName(name);
}

// Touches ----------------------------------------------------------------------------------------

void playmp3::MakeButtons() {
    for (const ButtonFace& face : Faces) {
        auto button = std::make_unique<TouchButton>(context_, &Frame1_);
        button->setObjectName(face.name);
        button->SetCaption(face.caption);
        button->SetPressedPicture(face.pressed);
        buttons_[face.id] = std::move(button);
    }
    HoldButton(TouchButtonId::Rewind, HeldRewind);
    HoldButton(TouchButtonId::FastForward, HeldForward);
    HoldButton(TouchButtonId::VolumeDown, HeldVolDown);
    HoldButton(TouchButtonId::VolumeUp, HeldVolUp);
    const auto click = [this](TouchButtonId id, void (AudioPlayer::*operation)()) {
        Button(id).onClick = [this, operation] { (player_.*operation)(); };
    };
    click(TouchButtonId::DoQuit, &AudioPlayer::doquit);
    Button(TouchButtonId::DoQuit).whileBusy = Commands::When::Interrupt;
    click(TouchButtonId::Swap, &AudioPlayer::Swap);
    click(TouchButtonId::RunOk, &AudioPlayer::runok);
    click(TouchButtonId::Pause, &AudioPlayer::DoPause);
    click(TouchButtonId::GPS, &AudioPlayer::LoadGPS);
    click(TouchButtonId::ExtApps, &AudioPlayer::ShowApplications);
    click(TouchButtonId::PageUp, &AudioPlayer::PgUp);
    click(TouchButtonId::PageDown, &AudioPlayer::PgDn);
    click(TouchButtonId::Mute, &AudioPlayer::domute);
    click(TouchButtonId::Shuffle, &AudioPlayer::setshuffle);
    click(TouchButtonId::Source, &AudioPlayer::TSRadio2MP3Btn_Click);
    Button(TouchButtonId::AddFavorite).onClick = [this] {
        player_.AddToFavorites();
        ShowUpperBar(false);
    };
    Button(TouchButtonId::Vis).onClick = [this] {
        ShowUpperBar(false);
        player_.DoVis();
    };
    Button(TouchButtonId::Dim).onClick = [this] {
        context_.ToggleDim();
        ShowUpperBar(false);
    };
    Button(TouchButtonId::PopUpMenu).onClick = [this] { ShowUpperBar(!upperOpen_); };
}

void playmp3::HoldButton(TouchButtonId id, HeldAction action) {
    Button(id).onPress = [this, action] { player_.buttons().Press(action); };
    Button(id).onRelease = [this](bool inside) { player_.buttons().Release(inside); };
}

void playmp3::ConnectList() {
    UCListBox_.onItemClick = [this](int) {
        ShowUpperBar(false);
        player_.runok();
    };
    UCListBox_.onScrollStart = [this](int code) {
        player_.buttons().Press(static_cast<HeldAction>(code));
    };
    UCListBox_.onScrollStop = [this] { player_.buttons().Release(); };
}

void playmp3::ShowUpperBar(bool open) {
    upperOpen_ = open && !layout_.upperBar.isEmpty();
    frmUpperBar_.setVisible(upperOpen_);
    for (const ButtonPlace& place : layout_.buttons)
        if (place.upper) Button(place.id).setVisible(upperOpen_);
    Button(TouchButtonId::PopUpMenu).SetPicture(upperOpen_ ? "menusel.gif" : "menu.gif");
}

void playmp3::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) { context_.commands.Run([&] { player_.Wheel(tick); }); });
}

// Layout and look --------------------------------------------------------------------------------

void playmp3::DoLayout() {
    const AppState& state = context_.state;
    const Settings& settings = context_.settings;
    layout_ = PlayerLayout(state.ScreenWidth, state.ScreenHeight, settings.GPSModule != 0,
                           settings.dlink_enabled || settings.xmpcr_enabled);
    setGeometry(0, 0, state.ScreenWidth, state.ScreenHeight);
    Frame1_.setGeometry(rect());
    Place();
    Dress();
    PlaceButtons();
    update();
}

void playmp3::Place() {
    lbPlayListTitle_.setGeometry(layout_.listTitle);
    Vol_.setGeometry(layout_.listTitle);
    Label1_.setGeometry(layout_.clock);
    UCST_.setGeometry(layout_.title);
    artistlabel_.setGeometry(layout_.artist);
    QRect touched = layout_.trackTime;
    touched.setTop(std::min(touched.top(), touched.bottom() + 1 - TouchSide(height())));
    TrackTimeLabel_.setGeometry(touched);
    TrackTimeLabel_.SetFace(layout_.trackTime.translated(-touched.topLeft()));
    lblBitRate_.setGeometry(layout_.bitRate);
    lblShuffle_.setGeometry(layout_.shuffle);
    lbLoading_.setGeometry(layout_.loading);
    imgCoverArt_.setGeometry(layout_.cover);
}

void playmp3::Dress() {
    const SkinData& skin = context_.skin.data();
    const auto dress = [&](ShadedLabel& label, const SkinFont& font, SkinColour colour,
                           Qt::Alignment alignment) {
        label.SetLook(font, colour, skin);
        label.SetAlignment(alignment | Qt::AlignVCenter);
        label.SetShrink(SmallestText);
    };
    dress(lbPlayListTitle_, skin.headingbarfont, skin.HeadingBarForegroundClr, Qt::AlignLeft);
    dress(Vol_, skin.headingbarfont, skin.HeadingBarForegroundClr, Qt::AlignLeft);
    dress(Label1_, skin.clockfont, skin.ClockForegroundClr, Qt::AlignRight);
    // It also tells which file becomes a favourite: better cut than too small to be read.
    Label1_.SetShrink(SmallestClock);
    Label1_.SetElide(Qt::ElideMiddle);
    dress(artistlabel_, skin.artistfont, skin.ListTitleClr, Qt::AlignHCenter);
    artistlabel_.SetShadow(ShadowFor(ToQColor(skin.ListTitleClr)));
    dress(TrackTimeLabel_, skin.headingbarfont, skin.ListForegroundClr, Qt::AlignLeft);
    dress(lblBitRate_, skin.headingbarfont, skin.ListForegroundClr, Qt::AlignHCenter);
    dress(lblShuffle_, skin.headingbarfont, skin.currentsongclr, Qt::AlignRight);
    dress(lbLoading_, skin.headingbarfont, skin.HeadingBarForegroundClr, Qt::AlignHCenter);
    lbLoading_.SetGround(ToQColor(skin.HeadingBarBackgroundClr), height() / 40);
    lbLoading_.SetWrap(true);
    UCST_.ScrollText(UCST_.Text(), skin.currentsongclr, ShadowFor(ToQColor(skin.currentsongclr)),
                     skin.Titlefont);
    UCST_.SetBackground(skin.playmp3);
    PlaceList();
}

// What the whole rows leave free of the list's place stands mostly above it, to set it off from the
// panel.
void playmp3::PlaceList() {
    const std::string& ground = context_.skin.data().playmp3;
    UCListBox_.setGeometry(layout_.list);
    UCListBox_.SetiMaxVis(ground);
    const int rest = layout_.list.height() - rows_.UsableHeight;
    UCListBox_.setGeometry(layout_.list.adjusted(0, rest * 2 / 3, 0, 0));
    UCListBox_.SetiMaxVis(ground);
}

void playmp3::PlaceButtons() {
    for (const ButtonFace& face : Faces) {
        Button(face.id).hide();
        // The logic may have given it the picture of its state already.
        if (Button(face.id).Picture().empty()) Button(face.id).SetPicture(face.picture);
    }
    frmUpperBar_.setGeometry(layout_.upperBar);
    frmUpperBar_.setAutoFillBackground(true);
    QPalette palette = frmUpperBar_.palette();
    palette.setColor(QPalette::Window, ToQColor(context_.skin.data().HeadingBarBackgroundClr));
    frmUpperBar_.setPalette(palette);
    for (const ButtonPlace& place : layout_.buttons) {
        Button(place.id).setGeometry(place.rect);
        Button(place.id).setVisible(!place.upper);
        Button(place.id).raise();
    }
    ShowUpperBar(false);
    lbLoading_.raise();
}

void playmp3::paintEvent(QPaintEvent*) {
    const SkinData& skin = context_.skin.data();
    QPainter painter(this);
    const QPixmap ground = context_.pictures.Picture(skin.playmp3, size(), PictureFit::Stretch);
    if (ground.isNull())
        painter.fillRect(rect(), GroundWithoutPicture(skin));
    else
        painter.drawPixmap(0, 0, ground);
    if (Frame1_.isHidden()) return;
    const QRect top(0, 0, width(), layout_.clock.height());
    painter.fillRect(top, ToQColor(skin.HeadingBarBackgroundClr));
    painter.drawPixmap(
        layout_.bottomBar.topLeft(),
        context_.pictures.Picture("bottombar.jpg", layout_.bottomBar.size(), PictureFit::Stretch));
    const int margin = layout_.list.left();
    painter.fillRect(margin, layout_.list.top(), width() - 2 * margin, 1, ToQColor(skin.LineClr));
    if (imgCoverArt_.isVisible()) return; // it stands in the sign's place
    const QPixmap sign = context_.pictures.Picture(mediaType_, layout_.mediaType.size());
    QRect place = sign.rect();
    place.moveCenter(layout_.mediaType.center());
    painter.drawPixmap(place.topLeft(), sign);
}

// The logic's view -------------------------------------------------------------------------------

void playmp3::ShowVolume(const std::string& text) {
    if (!text.empty()) Vol_.SetText(text);
    Vol_.setVisible(!text.empty());
    lbPlayListTitle_.setVisible(text.empty());
}

void playmp3::ShowLoading(const std::string& text) {
    lbLoading_.SetText(text);
    lbLoading_.setVisible(!text.empty());
    if (!text.empty()) lbLoading_.repaint();
}

void playmp3::ShowMediaType(const std::string& picture) {
    if (mediaType_ == picture) return;
    mediaType_ = picture;
    update(layout_.mediaType);
}

void playmp3::LoadCover(const CoverRequest& request,
                        std::function<void(const CoverOutcome&)> done) {
    covers_.Load(request, layout_.cover.size(),
                 [this, done = std::move(done)](const CoverOutcome& outcome, const QImage& image) {
                     if (outcome.error.empty()) ShowCover(image);
                     done(outcome);
                 });
}

void playmp3::HideCover() {
    covers_.Cancel();
    ShowCover({});
}

void playmp3::ShowCover(const QImage& image) {
    const bool shown = !image.isNull();
    imgCoverArt_.setPixmap(QPixmap::fromImage(image));
    if (shown != imgCoverArt_.isHidden()) return;
    imgCoverArt_.setVisible(shown);
    update(layout_.mediaType);
}

void playmp3::SetButton(PlayerButton button, const std::string& picture) {
    Button(IdOf(button)).SetPicture(picture);
}

void playmp3::ShowAtFront() {
    ShowUpperBar(false); // it lay over what was there before
    show();
    raise();
    UCListBox_.ReDrawList();
}

} // namespace vk
