// How the keyboard is drawn: ground, prompt, text line, keys.
#include "skin/controls/looks.h"
#include "skin/controls/plate.h"
#include "skin/controls/uc_osk.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr double LineContrast = 3;
constexpr double KeyLetter = 0.45;  // font height to key height
constexpr double LineLetter = 0.74; // font height to the height of a line
constexpr double SmallestCaption = 0.8;
constexpr int ShownCharacters = 200; // of a long text: more than any line holds

QRect ToQRect(const KeyBox& box) {
    return {box.Left, box.Top, box.Width, box.Height};
}

QFont Sized(const SkinFont& font, const SkinData& skin, double pixels) {
    QFont result = ToQFont(font, skin);
    if (font.size <= 0) result.setPixelSize(std::max(6, static_cast<int>(pixels)));
    return result;
}

} // namespace

QFont UCOSK::KeyFont() const {
    const OSKProperties& p = properties_;
    return Sized({p.KeyFontName, p.KeyFontBold, p.KeyFontItalic, p.KeyFontSize},
                 context_.skin.data(), model_.Label1(0).Height * KeyLetter);
}

QFont UCOSK::TextFont() const {
    const OSKProperties& p = properties_;
    return Sized(
        {p.SearchTextFontName, p.SearchTextFontbold, p.SearchTextFontItalic, p.SearchTextFontSize},
        context_.skin.data(), model_.Label2().Height * LineLetter);
}

void UCOSK::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(properties_.BackColor));
    painter.translate(ScaleLeft(), ScaleTop());
    DrawCaption(painter);
    DrawText(painter);
    for (int index = 0; index < KeyboardModel::KeyCount; ++index)
        DrawKey(painter, index);
}

void UCOSK::DrawCaption(QPainter& painter) const {
    const QRect box = ToQRect(model_.lblCaption());
    const QRect inner = box.adjusted(box.height() / 4, 0, -box.height() / 4, 0);
    const QString caption = ToQString(model_.Caption());
    QFont font = KeyFont();
    font.setPixelSize(std::max(6, static_cast<int>(box.height() * LineLetter)));
    font = FittingFont(font, caption, inner.size(), Qt::TextSingleLine, SmallestCaption);
    painter.setFont(font);
    painter.setPen(Legible(ToQColor(properties_.KeyFontColor), ToQColor(properties_.BackColor)));
    painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(caption, Qt::ElideRight, inner.width()));
}

// Of a long text the end is shown, where it is typed.
void UCOSK::DrawText(QPainter& painter) const {
    const QColor ground = ToQColor(properties_.BackColor);
    const QColor line = Legible(ToQColor(context_.skin.data().LineClr), ground, LineContrast);
    const QColor colour = Legible(ToQColor(properties_.SearchFontColor), ground);
    const QRect box = ToQRect(model_.Label2());
    const QFont font = TextFont();
    const QFontMetrics metrics(font);
    DrawCaptionPlate(painter, box.adjusted(1, 0, -1, 0), {}, font, {ground, line, colour, 2});
    const QRect inner = box.adjusted(box.height() / 4, 0, -box.height() / 2, 0);
    const QString end = ToQString(model_.UserText()).right(ShownCharacters);
    const QString shown = metrics.elidedText(end, Qt::ElideLeft, inner.width());
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
    const int high = std::min(metrics.height(), box.height() - 8);
    painter.fillRect(inner.left() + metrics.horizontalAdvance(shown) + 2,
                     box.center().y() - high / 2, 3, high, colour);
}

// A pressed key has ground and figures of a plain one exchanged.
void UCOSK::DrawKey(QPainter& painter, int index) const {
    const QColor back = ToQColor(properties_.BackColor);
    const QColor figure = Legible(ToQColor(properties_.KeyFontColor), back);
    const bool pressed = index == held_ || index == lit_;
    const bool marked = index == model_.Mark();
    PlateLook look;
    look.ground = pressed ? figure : marked ? ToQColor(properties_.SelectionBoxClr) : back;
    look.text = pressed ? back : Legible(figure, look.ground);
    look.edge =
        marked ? figure : Legible(ToQColor(context_.skin.data().LineClr), back, LineContrast);
    look.edgeWidth = marked ? 3 : 2;
    const QRect box = ToQRect(model_.Label1(index));
    const int gap = std::max(1, box.height() / 28);
    DrawCaptionPlate(painter, box.adjusted(gap, gap, -gap, -gap),
                     ToQString(model_.KeyCaption(index)), KeyFont(), look);
}

} // namespace vk
