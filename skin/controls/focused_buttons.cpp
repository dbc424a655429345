#include "skin/controls/focused_buttons.h"

#include "skin/controls/looks.h"
#include "skin/controls/nearest_box.h"
#include "skin/controls/touch_button.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int FrameShare = 80; // the frame's width is the screen's height divided by this
constexpr int NoteShare = 7;   // and the note's height likewise

// A frame around an empty label would say nothing.
bool TakesTouch(const QWidget* widget) {
    const auto* label = dynamic_cast<const ShadedLabel*>(widget);
    return dynamic_cast<const TouchButton*>(widget) ||
           (label && label->TakesTouches() && !label->Text().empty());
}

} // namespace

FocusedButtons::FocusedButtons(const ControlContext& context, QWidget* screen)
    : QWidget(screen), context_(context), screen_(*screen), note_(screen),
      noteTimer_(context.clock.MakeTimer([this] { Say({}); })) {
    setObjectName(QStringLiteral("FocusedButtons"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    note_.setAttribute(Qt::WA_TransparentForMouseEvents);
    note_.hide();
    hide();
}

FocusedButtons::~FocusedButtons() = default;

// What is drawn of it: more of it may take a touch.
QRect FocusedButtons::BoxOf(const QWidget& widget) const {
    const auto* label = dynamic_cast<const ShadedLabel*>(&widget);
    const auto* button = dynamic_cast<const TouchButton*>(&widget);
    const QRect face = label ? label->Face() : button ? button->Face() : widget.rect();
    return face.translated(widget.mapTo(&screen_, QPoint()));
}

// What is covered is out of reach for a finger, too; and the bar that lies behind buttons is one of
// them already.
std::vector<QWidget*> FocusedButtons::Targets() const {
    std::vector<QWidget*> targets;
    for (QWidget* child : screen_.findChildren<QWidget*>())
        if (TakesTouch(child) && child->isVisible() && child->isEnabled() &&
            screen_.childAt(BoxOf(*child).center()) == child)
            targets.push_back(child);
    const auto all = targets;
    std::erase_if(targets, [&](const QWidget* bar) {
        return std::ranges::any_of(all, [&](const QWidget* button) {
            return button != bar && BoxOf(*bar).contains(BoxOf(*button).center());
        });
    });
    std::ranges::stable_sort(targets, {}, [&](const QWidget* each) { return BoxOf(*each).left(); });
    return targets;
}

bool FocusedButtons::Offered() const {
    return screen_.isVisible() && (!offered || offered()) && (onFocus || !Targets().empty());
}

bool FocusedButtons::Enter() {
    if (!Offered()) return false;
    if (onFocus) onFocus(true);
    return Marks(Targets());
}

bool FocusedButtons::Marks(const std::vector<QWidget*>& targets) {
    // Left of the middle: of a bar with two ends the left one, on which nothing ends.
    const QPoint middle(screen_.width() * 9 / 20, screen_.height());
    const auto nearest = std::ranges::min_element(targets, {}, [&](const QWidget* each) {
        return (BoxOf(*each).center() - middle).manhattanLength();
    });
    if (nearest == targets.end()) return false;
    const bool known = std::ranges::find(targets, target_.data()) != targets.end();
    Mark(known ? target_.data() : *nearest);
    return true;
}

// A bar over another program is lower than the screen.
int FocusedButtons::FrameWidth() const {
    return std::max(screen_.height(), context_.state.ScreenHeight) / FrameShare + 1;
}

void FocusedButtons::Mark(QWidget* target) {
    target_ = target;
    const int frame = FrameWidth();
    const QRect box = BoxOf(*target);
    // In a low bar at the screen's edge a whole frame would cover the picture that it marks.
    const int beyond = box.height() < 5 * frame ? frame : 0;
    setGeometry(box.adjusted(-frame, -frame, frame, frame) &
                screen_.rect().adjusted(-beyond, -beyond, beyond, beyond));
    show();
    raise();
    update();
}

void FocusedButtons::Leave() {
    if (isHidden()) return;
    hide();
    if (onFocus) onFocus(false);
}

// Also when its screen goes: the next one begins without.
void FocusedButtons::hideEvent(QHideEvent*) {
    pressed_ = false;
    if (!isHidden()) Leave();
}

void FocusedButtons::Move(int dx, int dy) {
    const auto targets = Targets();
    if (!target_ || std::ranges::find(targets, target_.data()) == targets.end()) {
        Marks(targets);
        return;
    }
    std::vector<QRect> boxes;
    boxes.reserve(targets.size());
    for (const QWidget* each : targets)
        boxes.push_back(each == target_ ? QRect() : BoxOf(*each));
    const int next = NearestBox(BoxOf(*target_), boxes, dx, dy);
    if (next >= 0) return Mark(targets[static_cast<std::size_t>(next)]);
    if (dy == 0) return;
    // Whoever has up and down alone goes round.
    const auto count = static_cast<std::ptrdiff_t>(targets.size());
    const auto at = std::ranges::find(targets, target_.data()) - targets.begin();
    Mark(targets[static_cast<std::size_t>((at + dy + count) % count)]);
}

void FocusedButtons::Press() {
    if (!Marked() || pressed_) return;
    pressed_ = true;
    Touch(QEvent::MouseButtonPress);
}

// What it does may show other buttons, hide its own, or lead away.
void FocusedButtons::Release() {
    if (!std::exchange(pressed_, false) || !Marked()) return;
    const QPointer<FocusedButtons> alive(this);
    Touch(QEvent::MouseButtonRelease);
    if (alive && Marked() && !Marks(Targets())) Leave();
}

void FocusedButtons::Touch(QEvent::Type type) {
    const QPointF at = target_->rect().center();
    const bool down = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, at, target_->mapToGlobal(at), Qt::LeftButton,
                      down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target_, &event);
}

void FocusedButtons::Say(const std::string& text) {
    noteTimer_->Stop();
    note_.setVisible(!text.empty());
    if (text.empty()) return;
    const SkinData& skin = context_.skin.data();
    const int wide = screen_.width() * 3 / 4, high = screen_.height() / NoteShare;
    note_.setGeometry((screen_.width() - wide) / 2, screen_.height() / 2, wide, high);
    note_.SetLook(skin.headingbarfont, skin.HeadingBarForegroundClr, skin);
    note_.SetGround(ToQColor(skin.HeadingBarBackgroundClr), high / 6);
    note_.SetWrap(true);
    note_.SetShrink(0.6);
    note_.SetText(text);
    note_.raise();
    noteTimer_->Start(SayMs);
}

// Two lines of contrast: the skin decides what lies under them.
void FocusedButtons::paintEvent(QPaintEvent*) {
    const QColor mark = ToQColor(context_.skin.data().ListSelectedBackgroundClr);
    const int frame = FrameWidth(), edge = frame / 3 + 1;
    QPainter painter(this);
    const auto line = [&](int inset, int width, const QColor& colour) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        const double half = width / 2.0;
        painter.drawRect(
            QRectF(rect()).adjusted(inset + half, inset + half, -inset - half, -inset - half));
    };
    line(0, frame, ReadableOn(mark));
    line(edge, frame, mark);
    line(frame + edge, 1, ReadableOn(mark));
}

} // namespace vk
