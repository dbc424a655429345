#include "skin/controls/black_background.h"

#include "skin/controls/looks.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace vk {

namespace {

constexpr double BarTop = 0.88;     // of the height
constexpr double BarHeight = 0.035; // of the height
constexpr double BarWidth = 0.7;    // of the width
constexpr double NameWidth = 0.6;   // of the width
constexpr int BootSteps = 13;       // the range that an emptied bar stands at

} // namespace

BlackBackground::BlackBackground(const AppState& state, Screens& screens, const SkinStore& skin,
                                 QWidget* parent)
    : QWidget(parent), state_(state), screens_(screens), skin_(skin) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    DoLayout();
}

void BlackBackground::DoLayout() {
    if (parentWidget()) setGeometry(parentWidget()->rect());
}

void BlackBackground::Load() {
    screens_.CurrentForm = "BlackBackground";
    DoLayout();
    show();
    raise();
    repaint();
}

void BlackBackground::InitProgress(int from, int to) {
    range_ = std::max(1, std::abs(to - from) + (from < 1 ? 1 : 0));
    SetProgress(1);
}

void BlackBackground::SetProgress(int value) {
    value_ = value;
    faceShown_ = true;
    repaint(BarRect());
}

void BlackBackground::SetProgressToMax() {
    SetProgress(range_);
}

void BlackBackground::ClearScreen() {
    InitProgress(0, BootSteps);
    faceShown_ = false;
    repaint();
}

void BlackBackground::ReBlit() {
    repaint();
}

double BlackBackground::Filled() const {
    return faceShown_ ? std::clamp(static_cast<double>(value_) / range_, 0.0, 1.0) : 0.0;
}

// The screens may be smaller than the display.
QRect BlackBackground::Interface() const {
    const QRect screens(0, 0, state_.ScreenWidth, state_.ScreenHeight);
    return screens.isEmpty() ? rect() : rect().intersected(screens);
}

QRect BlackBackground::BarRect() const {
    const QRect whole = Interface();
    const int wide = static_cast<int>(whole.width() * BarWidth);
    return {(whole.width() - wide) / 2, static_cast<int>(whole.height() * BarTop), wide,
            std::max(12, static_cast<int>(whole.height() * BarHeight))};
}

QColor BlackBackground::Accent() const {
    if (skin_.Generation() == 0) return {0x2F, 0x7F, 0xD6};
    const QColor colour = ToQColor(skin_.data().ListSelectedBackgroundClr);
    // A dark accent of a day skin would not show on this ground.
    return colour.lightness() < 110 ? colour.lighter(170) : colour;
}

void BlackBackground::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawName(painter);
    DrawBar(painter);
}

void BlackBackground::DrawName(QPainter& painter) const {
    const QString name = QStringLiteral("Velkorandum");
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(100);
    const double natural = QFontMetricsF(font).horizontalAdvance(name);
    font.setPixelSize(
        std::max(8, static_cast<int>(100 * Interface().width() * NameWidth / natural)));
    painter.setFont(font);
    painter.setPen(QColor(0xB4, 0xBE, 0xC8));
    painter.drawText(Interface(), Qt::AlignCenter, name);
}

void BlackBackground::DrawBar(QPainter& painter) const {
    const QRectF frame = QRectF(BarRect()).adjusted(1, 1, -1, -1);
    const double radius = frame.height() / 4;
    painter.setPen(QPen(QColor(0x4A, 0x58, 0x66), 2));
    painter.setBrush(QColor(0x10, 0x16, 0x1C));
    painter.drawRoundedRect(frame, radius, radius);
    QRectF face = frame.adjusted(3, 3, -3, -3);
    face.setWidth(face.width() * Filled());
    painter.setPen(Qt::NoPen);
    painter.setBrush(Accent());
    painter.drawRoundedRect(face, radius / 2, radius / 2);
}

} // namespace vk
