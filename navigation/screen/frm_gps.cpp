#include "navigation/screen/frm_gps.h"

#include "core/text.h"
#include "skin/controls/looks.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>
#include <utility>

namespace vk {

namespace {

constexpr double SmallestText = 0.5; // how far a label may shrink its text before it is cut
constexpr double TextContrast = 4.5;

struct LabelName {
    GPSLabel label;
    const char* control;
    const char* inSkin;
};

constexpr LabelName Names[] = {
    {GPSLabel::Volume, "lbGPSVolume", "VOLUME"},      {GPSLabel::Speed, "lbGPSSpeed", "SPEED"},
    {GPSLabel::Heading, "lbGPSHeading", "DIRECTION"}, {GPSLabel::Status, "lbGPSStatus", "STATUS"},
    {GPSLabel::Title, "lbSongTitle", "TITLE"},        {GPSLabel::Artist, "lbSongArtist", "ARTIST"}};

// Of the status group, which gives way to the volume.
bool InStatusGroup(GPSLabel label) {
    return label == GPSLabel::Speed || label == GPSLabel::Heading || label == GPSLabel::Status;
}

bool OfMusic(GPSLabel label) {
    return label == GPSLabel::Title || label == GPSLabel::Artist;
}

SkinFont FontOf(const IsnFont& font, int size) {
    SkinFont as;
    if (!font.name.empty()) as.name = font.name;
    as.bold = font.bold;
    as.italic = font.italic;
    as.size = static_cast<std::int16_t>(std::clamp(size, 1, 300));
    return as;
}

} // namespace

frmGPS::frmGPS(const ControlContext& context, const GPSScreen::Needs& needs, IsnFile& isn,
               QWidget* parent)
    : QWidget(parent), context_(context), isn_(isn), frmBrowseDest_(this),
      complaint_(&frmBrowseDest_), UCListBox_(context, rows_, this), lblMessage_(this),
      KBFrame_(context, keyboard_, this), focus_(context, this),
      screen_(needs, {*this, rows_, text_}) {
    setObjectName("frmGPS");
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
    for (const LabelName& name : Names) {
        labels_[name.label] = std::make_unique<ShadedLabel>(this);
        labels_[name.label]->setObjectName(name.control);
    }
    frmBrowseDest_.setObjectName("frmBrowseDest");
    UCListBox_.setObjectName("picGPSList");
    UCListBox_.hide();
    UCListBox_.onItemClick = [this](int) { screen_.runok(); };
    lblMessage_.setObjectName("lblMessage");
    lblMessage_.hide();
    KBFrame_.setObjectName("KBFrame");
    KBFrame_.onSlide = [this](bool open) { screen_.CoverMap(open); };
    focus_.offered = [this] { return KBFrame_.isHidden() && !UCListBox_.isVisible(); };
    DoLayout();
}

// Layout and look ---------------------------------------------------------------------------------

void frmGPS::DoLayout() {
    isn_.Load();
    setGeometry(0, 0, context_.state.ScreenWidth, context_.state.ScreenHeight);
    layout_ = IsnLayout(isn_.data(), size());
    MakeAreas();
    PlaceLabels();
    PlaceBar();
    PlaceMap();
    KBFrame_.Place(rect());
    KBFrame_.raise();
    lblMessage_.raise();
    focus_.raise();
    update();
}

// The first of two that overlap lies in front.
void frmGPS::MakeAreas() {
    for (auto& area : areas_) { // one of them may be held, or be what has asked for this
        area->hide();
        area->setObjectName({});
        area.release()->deleteLater();
    }
    areas_.clear();
    const auto& buttons = isn_.data().buttons;
    for (const IsnSkin::Button& button : buttons) {
        const QRect place = layout_.Place(button.place);
        if (place.isEmpty()) continue;
        const auto pressed = [this] { return Picture(true); };
        auto area = std::make_unique<AreaButton>(context_, button.name, pressed, this);
        area->setGeometry(place);
        WireArea(*area);
        area->lower();
        area->show();
        areas_.push_back(std::move(area));
    }
    DressAreas();
}

// Without the picture that they are drawn in they show themselves.
void frmGPS::DressAreas() {
    const std::string picture = isn_.Picture(State(), false);
    const bool drawn = !context_.pictures.Picture(picture, size(), PictureFit::Stretch).isNull();
    for (const auto& area : areas_)
        area->InPicture = drawn;
}

void frmGPS::WireArea(AreaButton& area) {
    const std::string name = area.Name();
    area.onPress = [this, name] { screen_.PressArea(name); };
    area.onRelease = [this](bool) { screen_.ReleaseArea(); };
    area.onClick = [this, name] { screen_.ClickArea(name); };
    if (name == "QUIT") area.whileBusy = Commands::When::Interrupt;
}

// A screen with more lines than the skin was drawn for is read from as far away: its texts grow
// with what stands around them.
double frmGPS::TextScale() const {
    return std::max(context_.skin.data().FontScale(), static_cast<double>(layout_.ScaleY()));
}

SkinFont frmGPS::Sized(SkinFont font) const {
    font.size = static_cast<std::int16_t>(std::clamp(font.size * TextScale(), 1.0, 300.0));
    return font;
}

void frmGPS::PlaceLabels() {
    const auto& all = isn_.data().labels;
    for (const LabelName& name : Names) {
        ShadedLabel& label = *labels_.at(name.label);
        const auto as = std::ranges::find(all, name.inSkin, &IsnSkin::Label::name);
        label.setGeometry(as == all.end() ? QRect() : layout_.Place(*as));
        if (!label.geometry().isEmpty()) PlaceLabel(label, *as);
    }
    ShowLabels();
}

void frmGPS::PlaceLabel(ShadedLabel& label, const IsnSkin::Label& as) {
    const SkinColour colour = context_.skin.data().HeadingBarForegroundClr;
    // The .isn tells its own size: the skin's font scale has no part in it.
    label.SetLook(FontOf(as.font, layout_.FontSize(as.font)), colour, SkinData());
    label.SetColour(Legible(ToQColor(colour), GroundAt(label.geometry()), TextContrast));
    label.SetAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label.SetShrink(SmallestText);
}

void frmGPS::PlaceBar() {
    const SkinData& skin = context_.skin.data();
    const QColor ground = ToQColor(skin.HeadingBarBackgroundClr);
    const auto& bar = isn_.data().bar;
    SkinFont font = skin.headingbarfont;
    if (bar && !bar->font.name.empty())
        font = {bar->font.name, bar->font.bold, bar->font.italic, font.size};
    SkinColour colour = skin.HeadingBarForegroundClr;
    if (const auto own = bar ? ParseInteger(bar->colour) : std::nullopt)
        colour.value = static_cast<std::int32_t>(*own & 0xFFFFFF);
    lblMessage_.setGeometry(layout_.Bar());
    lblMessage_.SetLook(Sized(font), colour, SkinData());
    lblMessage_.SetColour(Legible(ToQColor(colour), ground, TextContrast));
    lblMessage_.SetGround(ground);
    lblMessage_.SetWrap(true);
    lblMessage_.SetShrink(SmallestText);
}

void frmGPS::PlaceMap() {
    const SkinData& skin = context_.skin.data();
    const QRect place = layout_.Map(audio_);
    frmBrowseDest_.setGeometry(place);
    frmBrowseDest_.setVisible(!place.isEmpty());
    complaint_.setGeometry(frmBrowseDest_.rect().adjusted(width() / 16, 0, -width() / 16, 0));
    complaint_.SetLook(Sized(skin.Titlefont), skin.ListForegroundClr, SkinData());
    complaint_.SetColour(Legible(ToQColor(skin.ListForegroundClr), GroundAt(place), TextContrast));
    complaint_.SetWrap(true);
    complaint_.SetShrink(SmallestText);
    UCListBox_.setGeometry(place);
    UCListBox_.FontScale = TextScale() / skin.FontScale();
    UCListBox_.SetiMaxVis(audio_ ? skin.GPSMUSIC : skin.GPSSTD);
    if (rows_.Loaded()) UCListBox_.LoadList();
    screen_.PlaceMap();
}

void frmGPS::ShowLabels() {
    for (const auto& [label, control] : labels_) {
        const bool wanted = label == GPSLabel::Volume ? volumeShown_
                            : InStatusGroup(label)    ? !volumeShown_
                            : OfMusic(label)          ? audio_
                                                      : true;
        control->setVisible(wanted && !control->geometry().isEmpty());
    }
}

IsnState frmGPS::State() const {
    return {audio_, context_.settings.GPSModule != 1};
}

// Where the .isn has no picture, the skin has a background for the map.
QPixmap frmGPS::Picture(bool pressed) const {
    const std::string named = isn_.Picture(State(), pressed);
    QPixmap picture = context_.pictures.Picture(named, size(), PictureFit::Stretch);
    if (!picture.isNull() || pressed) return picture;
    const SkinData& skin = context_.skin.data();
    return context_.pictures.Picture(audio_ ? skin.GPSMUSIC : skin.GPSSTD, size(),
                                     PictureFit::Stretch);
}

QColor frmGPS::GroundAt(const QRect& place) const {
    const QPixmap picture = Picture(false);
    if (picture.isNull()) return GroundWithoutPicture(context_.skin.data());
    return picture.copy(place)
        .toImage()
        .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .pixelColor(0, 0);
}

void frmGPS::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap picture = Picture(false);
    if (picture.isNull())
        painter.fillRect(rect(), GroundWithoutPicture(context_.skin.data()));
    else
        painter.drawPixmap(0, 0, picture);
}

// Touches -----------------------------------------------------------------------------------------

void frmGPS::wheelEvent(QWheelEvent* event) {
    wheel_.Turn(*event, [this](int tick) { context_.commands.Run([&] { screen_.Wheel(tick); }); });
}

void frmGPS::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    pressed_ = !frmBrowseDest_.geometry().contains(at); // the map is no way out
}

// Whoever touches the frame leaves the screen.
void frmGPS::mouseReleaseEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->position().toPoint());
    if (std::exchange(pressed_, false) && inside)
        context_.commands.Run(Commands::When::Interrupt, [this] { screen_.doquit(); });
}

// The logic's view --------------------------------------------------------------------------------

void frmGPS::SetLabel(GPSLabel label, const std::string& text) {
    labels_.at(label)->SetText(text);
}

void frmGPS::ShowVolume(bool shown) {
    if (shown == volumeShown_) return;
    volumeShown_ = shown;
    ShowLabels();
}

void frmGPS::ShowMessage(const std::string& text) {
    lblMessage_.SetText(text);
    lblMessage_.setVisible(!text.empty());
    lblMessage_.raise();
}

void frmGPS::ShowComplaint(const std::string& text) {
    complaint_.SetText(text);
}

void frmGPS::ShowList(bool shown) {
    UCListBox_.setVisible(shown);
    if (shown) UCListBox_.LoadList();
}

// The picture of the state is another one, and the map has another place.
void frmGPS::SetAudio(bool plays) {
    audio_ = plays;
    PlaceMap();
    ShowLabels();
    DressAreas();
    update();
}

WindowArea frmGPS::MapArea() const {
    const QRect place = layout_.Map(audio_);
    return {place.x(), place.y(), place.width(), place.height()};
}

void frmGPS::ShowAtFront() {
    show();
    raise();
}

} // namespace vk
