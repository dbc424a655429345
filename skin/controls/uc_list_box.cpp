#include "skin/controls/uc_list_box.h"

#include "skin/controls/looks.h"
#include "skin/touch_target.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int Timer1Ms = 100;
constexpr int LeastRows = 3;
constexpr int TouchMs = 200; // the touched row stands so long before it is run
// A touch that comes sooner after one that changed the list was meant for the row that has gone.
constexpr int DeafMs = 250;

} // namespace

UCListBox::UCListBox(const ControlContext& context, ListModel& model, QWidget* parent)
    : QWidget(parent), context_(context), model_(model),
      timer1_(context.clock.MakeTimer([this] { Timer1_Timer(); })) {
    setFocusPolicy(Qt::NoFocus);
}

UCListBox::~UCListBox() = default;

void UCListBox::SetiMaxVis(const std::string& background, const std::string& arrowUp,
                           const std::string& arrowDown) {
    const SkinData& skin = context_.skin.data();
    font_ = ToQFont(skin.Listtextfont, skin.FontScale() * std::max(1.0, FontScale));
    SetRows();
    // A font that is too large for the list makes way for a few rows at least.
    const int room = height() / LeastRows;
    if (model_.RowHeight > room && room > 0) {
        font_.setPixelSize(std::max(1, font_.pixelSize() * room / model_.RowHeight));
        SetRows();
    }
    font_.setPixelSize(std::max(1, static_cast<int>(font_.pixelSize() * std::min(1.0, FontScale))));
    arrowUp_ = arrowUp;
    arrowDown_ = arrowDown;
    ground_ = context_.pictures.BackgroundBehind(
        background, *this, {context_.state.ScreenWidth, context_.state.ScreenHeight});
    setAttribute(Qt::WA_OpaquePaintEvent, !ground_.isNull());
    update();
}

void UCListBox::SetRows() {
    model_.SetGeometry(QFontMetrics(font_).height(), context_.settings.ListSpacing, height());
}

void UCListBox::AddItem(const std::string& first, const std::string& second,
                        const std::string& descriptor, const std::string& picture,
                        std::int32_t icon) {
    model_.AddItem(first, second, descriptor, picture, icon);
}

void UCListBox::RemoveItem(int index, bool redraw) {
    model_.RemoveItem(index);
    if (redraw) ReDrawList();
}

void UCListBox::ClearArraysXM() {
    model_.ClearArraysXM();
    update();
}

void UCListBox::ClearAllArrays() {
    model_.ClearAllArrays();
    update();
}

void UCListBox::LoadList() {
    model_.LoadList();
    update();
}

void UCListBox::Move(const std::function<void()>& change) {
    const int top = model_.TopRow();
    const int selected = model_.iSelected;
    change();
    if (model_.TopRow() != top) return update();
    update(RowRect(selected));
    update(RowRect(model_.iSelected));
}

void UCListBox::MoveUp() {
    Move([this] { model_.MoveUp(); });
}

void UCListBox::MoveDown() {
    Move([this] { model_.MoveDown(); });
}

void UCListBox::PageUp() {
    Move([this] { model_.PageUp(); });
}

void UCListBox::PageDown() {
    Move([this] { model_.PageDown(); });
}

void UCListBox::SelectItem(int index, bool jump, bool keep) {
    Move([&] { model_.SelectItem(index, jump, keep); });
}

void UCListBox::RplTitleListItem(int index, const std::string& text) {
    model_.RplTitleListItem(index, text);
    update(RowRect(index));
}

void UCListBox::RplartistListItem(int index, const std::string& text) {
    model_.RplartistListItem(index, text);
    update(RowRect(index));
}

void UCListBox::RplFilenameListItem(int index, const std::string& text) {
    model_.RplFilenameListItem(index, text);
    update(RowRect(index));
}

void UCListBox::ReDrawList() {
    update();
}

// Where rows lie beyond, what is touched is larger than the strip.
int UCListBox::StripAt(QPoint point) const {
    const int side = TouchSide(context_.state.ScreenHeight);
    const int top = model_.TopRow();
    const bool up = point.y() < height() / 2;
    const bool rowsBeyond = up ? top > 0 : top + model_.iMaxVis < model_.ItemCount();
    const int wide = rowsBeyond ? std::max(width() / 5, side) : width() / 5;
    const int tall = rowsBeyond ? std::max(height() / 15, side) : height() / 15;
    if (point.x() <= width() - wide) return 0;
    if (up) return point.y() < tall ? ScrollUpCode : 0;
    return point.y() > height() - tall ? ScrollDownCode : 0;
}

void UCListBox::mousePressEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const int strip = StripAt(point);
    stripHeld_ = strip != 0;
    if (stripHeld_) return PressStrip(strip);
    if (!model_.CanDraw()) return;
    const int row = model_.TopRow() + point.y() / model_.RowHeight;
    context_.commands.Run([this, row] { TouchRow(row); });
}

void UCListBox::PressStrip(int code) {
    if (onScrollStart) {
        context_.commands.Run([this, code] { onScrollStart(code); });
        return;
    }
    scrollUpHeld_ = code == ScrollUpCode;
    scrollDownHeld_ = code == ScrollDownCode;
    paged_ = false;
    heldTicks_ = 0;
    timer1_->Start(Timer1Ms);
}

void UCListBox::TouchRow(int row) {
    const bool onPage = row < model_.TopRow() + model_.iMaxVis && row < model_.ItemCount();
    if (!onPage || context_.clock.TickMs() < deafUntilMs_ || !ShowTouched(row)) return;
    const QPointer<UCListBox> alive(this);
    const int changes = model_.Changes();
    // The selection may have moved meanwhile, with the track.
    if (model_.iSelected != row) Move([&] { model_.SelectVisible(row); });
    if (onItemClick && row < model_.ItemCount()) onItemClick(row);
    if (alive && model_.Changes() != changes) deafUntilMs_ = context_.clock.TickMs() + DeafMs;
}

// False when the list has gone meanwhile, or another screen lies over it.
bool UCListBox::ShowTouched(int row) {
    const QPointer<UCListBox> alive(this);
    Move([&] { model_.SelectVisible(row); });
    if (!context_.pump.Turn() || !alive || !isVisible()) return false;
    context_.clock.Sleep(TouchMs);
    return true;
}

// A tap that is shorter than the timer's interval pages once as well.
void UCListBox::mouseReleaseEvent(QMouseEvent*) {
    if (!paged_) Timer1_Timer();
    EndTouch();
}

// The release goes elsewhere once the list is hidden; nothing may scroll on behind another screen.
void UCListBox::hideEvent(QHideEvent*) {
    if (stripHeld_) EndTouch();
}

void UCListBox::EndTouch() {
    stripHeld_ = scrollUpHeld_ = scrollDownHeld_ = false;
    paged_ = true;
    timer1_->Stop();
    if (onScrollStop) onScrollStop();
}

// One page at once; more when the finger stays.
void UCListBox::Timer1_Timer() {
    context_.commands.Run([this] {
        if (std::exchange(paged_, true) && ++heldTicks_ < context_.settings.TSRepeatVal) return;
        if (scrollUpHeld_) PageUp();
        if (scrollDownHeld_) PageDown();
    });
}

} // namespace vk
