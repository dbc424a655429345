#include "skin/dialogs/input_overlay.h"

#include "skin/controls/looks.h"
#include "skin/controls/plate.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

constexpr int KeyRows = 4;
constexpr int LongestValue = 400; // characters

constexpr const char* Small[KeyRows] = {"1234567890", "qwertyuiop", "asdfghjkl'", "zxcvbnm,.-"};
constexpr const char* Capital[KeyRows] = {"1234567890", "QWERTYUIOP", "ASDFGHJKL'", "ZXCVBNM,.-"};
constexpr const char* Signs[KeyRows] = {"!?@#$%&*+=", "()[]{}<>/\\", "\"'`:;_-~|^", "äöüßåæøéèñ"};

} // namespace

InputOverlay::InputOverlay(QWidget* host, const DialogLook& look, const Clock& clock,
                           const std::string& text, const std::string& title,
                           const std::string& value)
    : DialogOverlay(host, look, clock), text_(ToQString(text)), title_(ToQString(title)),
      value_(ToQString(value)) {}

int InputOverlay::TextHeight() const {
    return QFontMetrics(look_.Font(height(), 0.85)).height();
}

void InputOverlay::LayOut() {
    const int gap = Gap();
    panel_ = rect().adjusted(gap / 2, gap / 2, -gap / 2, -gap / 2);
    const QRect inner = panel_.adjusted(gap, gap, -gap, -gap);
    const QString heading = title_.isEmpty() ? text_ : title_ + QLatin1Char('\n') + text_;
    block_.Set(heading, look_.Font(height(), 0.85), inner.width());
    textBox_ =
        QRect(inner.topLeft(), QSize(inner.width(), std::min(block_.Height(), 3 * TextHeight())));
    field_ = QRect(inner.left(), textBox_.bottom() + gap, inner.width(), height() / 9);
    const QRect foot(inner.left(), inner.bottom() + 1 - ButtonHeight(), inner.width(),
                     ButtonHeight());
    cells_.clear();
    AddKeys(QRect(QPoint(inner.left(), field_.bottom() + gap),
                  QPoint(inner.right(), foot.top() - gap)));
    AddFoot(foot);
    if (marked_ < 0) MarkOK();
}

void InputOverlay::AddKeys(const QRect& box) {
    const int gap = Gap() / 2;
    const int high = (box.height() - gap * (KeyRows - 1)) / KeyRows;
    for (int row = 0; row < KeyRows; ++row) {
        const char* keys = page_ == Page::Signs     ? Signs[row]
                           : page_ == Page::Capital ? Capital[row]
                                                    : Small[row];
        std::vector<DialogCell> cells;
        for (const QChar key : QString::fromUtf8(keys))
            cells.push_back({{}, QString(key), [this, key] { Type(QString(key)); }});
        AddRow(QRect(box.left(), box.top() + row * (high + gap), box.width(), high), cells);
    }
}

void InputOverlay::AddFoot(const QRect& box) {
    const bool capital = page_ == Page::Capital;
    const bool signs = page_ == Page::Signs;
    AddRow(box, {{{},
                  QString::fromUtf8(capital ? "abc" : "ABC"),
                  [this, capital] { Show(capital ? Page::Small : Page::Capital); }},
                 {{},
                  QString::fromUtf8(signs ? "abc" : "#+="),
                  [this, signs] { Show(signs ? Page::Small : Page::Signs); }},
                 {{}, QStringLiteral("Space"), [this] { Type(QStringLiteral(" ")); }},
                 {{}, QStringLiteral("Delete"), [this] { value_.chop(1); }},
                 {{}, QStringLiteral("OK"), [this] { Finish(true); }},
                 {{}, QStringLiteral("Cancel"), [this] { Finish(false); }}});
}

void InputOverlay::MarkOK() {
    marked_ = static_cast<int>(cells_.size()) - 2;
}

void InputOverlay::Type(const QString& text) {
    value_ = (value_ + text).left(LongestValue);
}

void InputOverlay::Show(Page page) {
    page_ = page;
    LayOut();
}

bool InputOverlay::ContentKey(QKeyEvent& event) {
    const QString typed = event.text();
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete)
        value_.chop(1);
    else if (!typed.isEmpty() && typed.at(0).isPrint())
        Type(typed);
    else
        return false;
    MarkOK();
    return true;
}

void InputOverlay::DrawContent(QPainter& painter) {
    painter.setPen(look_.text);
    painter.save();
    painter.setClipRect(textBox_);
    block_.Draw(painter, textBox_.topLeft());
    painter.restore();
    PlateLook plate{look_.plate, look_.mark, look_.text, 2};
    const QFont font = look_.Font(height());
    DrawCaptionPlate(painter, field_, {}, font, plate);
    const QRect box = field_.adjusted(Gap(), 0, -2 * Gap(), 0);
    const QFontMetrics metrics(font);
    const QString shown = metrics.elidedText(value_, Qt::ElideLeft, box.width());
    painter.setFont(font);
    painter.setPen(look_.text);
    painter.drawText(box, Qt::AlignVCenter | Qt::AlignLeft, shown);
    const int caret = box.left() + metrics.horizontalAdvance(shown) + 2;
    painter.fillRect(caret, box.center().y() - metrics.height() / 2, 3, metrics.height(),
                     look_.mark);
}

} // namespace vk
