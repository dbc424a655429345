#include "video/screen/playmovie.h"

#include "skin/controls/looks.h"

#include <utility>

namespace vk {

namespace {

constexpr double SmallestText = 0.5; ///< how far a label may shrink its text before it is cut

struct ButtonFace {
    MovieButton id;
    const char* name;
    const char* picture;
    const char* pressed;
    const char* caption; ///< shown when the skin lacks the picture
};

constexpr ButtonFace Faces[] = {
    {MovieButton::DoQuit, "DoQuitBtn", "main.gif", "", "Menu"},
    {MovieButton::Swap, "SwapBtn", "lists.gif", "", "Lists"},
    {MovieButton::Choices, "ChoicesBtn", "menu.gif", "menusel.gif", "Tracks"},
    {MovieButton::Previous, "PreviousBtn", "previousfilm.gif", "", "|<"},
    {MovieButton::Rewind, "RewindBtn", "rw.gif", "rwsel.gif", "<<"},
    {MovieButton::Pause, "PauseBtn", "pause.gif", "", "Pause"},
    {MovieButton::FastForward, "FastForwardBtn", "ff.gif", "ffsel.gif", ">>"},
    {MovieButton::Next, "NextBtn", "nextfilm.gif", "", ">|"},
    {MovieButton::VolumeDown, "VolDownBtn", "vdown.gif", "vdownsel.gif", "-"},
    {MovieButton::VolumeUp, "VolUpBtn", "vup.gif", "vupsel.gif", "+"},
};

} // namespace

playmovie::playmovie(const ControlContext& context, const MoviePlayer::Needs& needs,
                     const KeyMap& keys, QWidget* parent)
    : QWidget(parent), context_(context),
      layout_(context.state.ScreenWidth, context.state.ScreenHeight), film_(this), Image4_(this),
      Vol_(this), lbMessage_(this), frmInfoBar_(context, "movietopbar.jpg", this),
      frmButtonBar_(context, "bottombar.jpg", this), lbFileTitle_(&frmInfoBar_),
      lbTime_(&frmInfoBar_), focus_(context, this), player_(needs, *this),
      keys_({needs.base, player_, needs.loudness, keys}) {
    NameControls();
    MakeButtons();
    Image4_.setAlignment(Qt::AlignCenter);
    for (QWidget* text : {static_cast<QWidget*>(&Vol_), static_cast<QWidget*>(&lbMessage_)})
        text->hide();
    film_.onTouch = [this](QPoint at) {
        const QRect place = film_.Place();
        keys_.PicturePlaced(place.left(), place.top(), place.width(), place.height());
        context_.commands.Run([&] { keys_.PictureTouched(at.x(), at.y(), width(), height()); });
    };
    focus_.onFocus = [this](bool on) { player_.bars().Hold(on); };
    hide();
    DoLayout();
}

void playmovie::NameControls() {
    setObjectName("playmovie");
    const std::pair<QWidget*, const char*> names[] = {
        {&film_, "MediaPlayer1"},
        {&Image4_, "Image4"},
        {&Vol_, "Vol"},
        {&lbMessage_, "lbMessage"},
        {&frmInfoBar_, "frmInfoBar"},
        {&frmButtonBar_, "frmButtonBar"},
        {&lbFileTitle_, "lbFileTitle"},
        {&lbTime_, "lbTime"},
    };
    for (const auto& [control, name] : names)
        control->setObjectName(name);
}

// Touches ----------------------------------------------------------------------------------------

void playmovie::MakeButtons() {
    for (const ButtonFace& face : Faces) {
        auto button = std::make_unique<TouchButton>(context_, &frmButtonBar_);
        button->setObjectName(face.name);
        button->SetCaption(face.caption);
        button->SetPicture(face.picture);
        button->SetPressedPicture(face.pressed);
        buttons_[face.id] = std::move(button);
    }
    HoldButton(MovieButton::Rewind, HeldRewind);
    HoldButton(MovieButton::FastForward, HeldForward);
    HoldButton(MovieButton::VolumeDown, HeldVolDown);
    HoldButton(MovieButton::VolumeUp, HeldVolUp);
    Button(MovieButton::DoQuit).onClick = [this] { player_.doquit(); };
    Button(MovieButton::DoQuit).whileBusy = Commands::When::Interrupt;
    Button(MovieButton::Swap).onClick = [this] { player_.Swap(); };
    Button(MovieButton::Choices).onClick = [this] { player_.films().ShowChoices(); };
    Button(MovieButton::Previous).onClick = [this] { player_.films().PreviousMovie(); };
    Button(MovieButton::Pause).onClick = [this] { player_.DoPause(); };
    Button(MovieButton::Next).onClick = [this] { player_.films().NextMovie(); };
}

void playmovie::HoldButton(MovieButton id, HeldAction action) {
    Button(id).onPress = [this, action] { player_.holds().Press(action); };
    Button(id).onRelease = [this](bool inside) { player_.holds().Release(inside); };
}

void playmovie::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) { context_.commands.Run([&] { keys_.Wheel(tick); }); });
}

// Layout and look --------------------------------------------------------------------------------

void playmovie::DoLayout() {
    const AppState& state = context_.state;
    layout_ = MovieLayout(state.ScreenWidth, state.ScreenHeight);
    setGeometry(0, 0, state.ScreenWidth, state.ScreenHeight);
    Place();
    Dress();
    playmovie::ShowBars(in_);
}

void playmovie::Place() {
    film_.setGeometry(rect());
    Image4_.setGeometry(rect());
    Vol_.setGeometry(layout_.volume);
    lbMessage_.setGeometry(layout_.message);
    lbFileTitle_.setGeometry(layout_.title);
    lbTime_.setGeometry(layout_.time);
    frmInfoBar_.resize(layout_.infoBar.size());
    frmButtonBar_.resize(layout_.buttonBar.size());
    for (const MovieLayout::Place& place : layout_.buttons)
        Button(place.button).setGeometry(place.rect);
}

void playmovie::Dress() {
    const SkinData& skin = context_.skin.data();
    for (ShadedLabel* label : {&lbFileTitle_, &lbTime_, &Vol_, &lbMessage_}) {
        label->SetLook(skin.Titlefont, skin.HeadingBarForegroundClr, skin);
        label->SetShrink(SmallestText);
    }
    lbFileTitle_.SetAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lbTime_.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const QColor ground = ToQColor(skin.HeadingBarBackgroundClr);
    for (ShadedLabel* label : {&Vol_, &lbMessage_})
        label->SetGround(ground, height() / 40);
    lbMessage_.SetWrap(true);
    Image4_.setPixmap(
        context_.pictures.Picture("loading.jpg", rect().size() / 2, PictureFit::Within));
    frmInfoBar_.update();
    frmButtonBar_.update();
}

// What the logic shows ---------------------------------------------------------------------------

void playmovie::ShowVolume(const std::string& text) {
    Vol_.SetText(text);
    Vol_.setVisible(!text.empty());
}

void playmovie::ShowMessage(const std::string& text) {
    lbMessage_.SetText(text);
    lbMessage_.setVisible(!text.empty());
}

void playmovie::ShowPaused(bool paused) {
    Button(MovieButton::Pause).SetPicture(paused ? "play.gif" : "pause.gif");
}

void playmovie::ShowBars(double in) {
    in_ = in;
    frmInfoBar_.move(0, -qRound((1 - in) * layout_.infoBar.height()));
    frmButtonBar_.move(0, height() - qRound(in * layout_.buttonBar.height()));
    frmInfoBar_.setVisible(in > 0);
    frmButtonBar_.setVisible(in > 0);
}

void playmovie::ShowAtFront() {
    show();
    raise();
}

} // namespace vk
