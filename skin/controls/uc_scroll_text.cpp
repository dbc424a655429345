#include "skin/controls/uc_scroll_text.h"

#include "skin/controls/looks.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr int Timer1Ms = 15;
constexpr int LongestText = 500; // characters: a title may come from a broken tag
constexpr QPoint LargestShadow(5, 3);

// The full shadow suits large letters only.
QPoint ShadowOffset(const QFont& font) {
    return {std::clamp(font.pixelSize() / 10, 1, LargestShadow.x()),
            std::clamp(font.pixelSize() / 16, 1, LargestShadow.y())};
}

QString OneLine(const std::string& text) {
    return ToQString(text).simplified().left(LongestText);
}

} // namespace

UCScrollText::UCScrollText(const ControlContext& context, QWidget* parent)
    : QWidget(parent), context_(context),
      timer1_(context.clock.MakeTimer([this] { Timer1_Timer(); })) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

UCScrollText::~UCScrollText() = default;

void UCScrollText::ScrollText(const std::string& text, SkinColour colour, QColor shadow,
                              const SkinFont& font) {
    colour_ = ToQColor(colour);
    shadow_ = shadow;
    font_ = ToQFont(font, context_.skin.data());
    text_ = text;
    position_ = 0;
    Render();
}

void UCScrollText::ScrollText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    position_ = 0;
    Render();
}

int UCScrollText::TestFitGetX(const std::string& text, const SkinFont& font) const {
    return QFontMetrics(ToQFont(font, context_.skin.data())).horizontalAdvance(OneLine(text));
}

void UCScrollText::SetBackground(const std::string& name) {
    ground_ = context_.pictures.BackgroundBehind(
        name, *this, {context_.state.ScreenWidth, context_.state.ScreenHeight});
    setAttribute(Qt::WA_OpaquePaintEvent, !ground_.isNull());
    update();
}

void UCScrollText::ReBlit() {
    Render();
}

// As large as the control has room for.
QFont UCScrollText::FittingFont() const {
    QFont font = font_;
    const int line = QFontMetrics(font).height() + ShadowOffset(font).y();
    if (line > height() && height() > 0)
        font.setPixelSize(std::max(1, font.pixelSize() * height() / line));
    return font;
}

void UCScrollText::Render() {
    const QFont font = FittingFont();
    const QFontMetrics metrics(font);
    QString shown = OneLine(text_);
    textWidth_ = metrics.horizontalAdvance(shown);
    textHeight_ = metrics.height();
    const QPoint offset = ShadowOffset(font);
    if (textWidth_ > width() && !context_.settings.UseAnimation) {
        shown = metrics.elidedText(shown, Qt::ElideRight, width() - offset.x());
        textWidth_ = metrics.horizontalAdvance(shown);
    }
    line_ = QPixmap(std::max(1, textWidth_ + offset.x()), std::max(1, textHeight_ + offset.y()));
    line_.fill(Qt::transparent);
    QPainter painter(&line_);
    painter.setFont(font);
    painter.setPen(shadow_);
    painter.drawText(offset + QPoint(0, metrics.ascent()), shown);
    painter.setPen(colour_);
    painter.drawText(QPoint(0, metrics.ascent()), shown);
    StartOrStop();
    update();
}

bool UCScrollText::Runs() const {
    return context_.settings.UseAnimation && textWidth_ > width();
}

void UCScrollText::StartOrStop() {
    if (!Runs() || !isVisible())
        timer1_->Stop();
    else if (!timer1_->Enabled())
        timer1_->Start(Timer1Ms);
    if (!Runs()) position_ = 0;
}

// The gap of a letter's height keeps the end of the text apart from its next beginning.
int UCScrollText::Period() const {
    return textWidth_ + 2 * textHeight_;
}

void UCScrollText::Timer1_Timer() {
    if (-position_ >= Period()) position_ = 0;
    --position_;
    update();
}

void UCScrollText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ground_.Draw(painter, {});
    const int y = (height() - textHeight_) / 2;
    if (!Runs()) {
        painter.drawPixmap(width() / 2 - textWidth_ / 2, y, line_);
        return;
    }
    painter.drawPixmap(position_, y, line_);
    painter.drawPixmap(position_ + Period(), y, line_);
}

void UCScrollText::resizeEvent(QResizeEvent*) {
    Render();
}

void UCScrollText::showEvent(QShowEvent*) {
    StartOrStop();
}

void UCScrollText::hideEvent(QHideEvent*) {
    timer1_->Stop();
}

} // namespace vk
