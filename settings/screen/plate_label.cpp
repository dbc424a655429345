#include "settings/screen/plate_label.h"

#include "skin/controls/looks.h"
#include "skin/controls/picture_loader.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace vk {

namespace {

constexpr double SmallestText = 0.4; // of the font
constexpr int LeastShared = 75;      // hundredths of the largest text of plates of one shape
constexpr int PictureWidth = 5, PictureHeight = 3; // a picture's shape
constexpr int PictureEdge = 4;                     // pixels around it
constexpr int BarShare = 6; // the bar's height is the plate's divided by this

} // namespace

PlateLabel::PlateLabel(QWidget* parent) : ShadedLabel(parent) {
    SetWrap(true);
    SetShrink(SmallestText);
}

void PlateLabel::Show(const Plate& plate, const QRect& box, bool marked, const RowLook& look) {
    setObjectName(QLatin1String(plate.name ? plate.name : ""));
    setGeometry(box);
    shape_ = {plate.width, plate.lines};
    SetText(plate.text());
    const int tall = box.height() - 2 * PictureEdge;
    ShowPreview(plate.pictureFile, {tall * PictureWidth / PictureHeight, tall});
    const State state{static_cast<bool>(plate.use), marked, plate.usable, plate.lit};
    if (!known_ || !(state == state_)) {
        SetGround({});
        if (state.button)
            look.Dress(*this, marked, plate.usable, plate.lit);
        else
            look.DressText(*this);
        bar_ = look.chosen;
        ground_ = look.ground;
        logFont_ = ToQFont(look.small, look.skin);
        logColour_ = ReadableOn(look.back);
    }
    scroll_ = plate.scroll;
    read_ = plate.text;
    state_ = state;
    MeasureText(plate);
    known_ = true;
    if (plate.picture) TakePicture(plate.picture());
    if (!plate.picture && !picture_.isNull()) TakePicture({});
    if (percent_ != plate.percent) update();
    percent_ = plate.percent;
    setVisible(true);
}

void PlateLabel::MeasureText(const Plate& plate) {
    decltype(measured_) now{Text(), plate.pictureFile, width(), height(), state_.button};
    if (plate.scroll || (known_ && now == measured_)) return;
    measured_ = std::move(now);
    textSize_ = FittingSize();
}

void PlateLabel::TakePicture(const PagePicture& picture) {
    const QImage pixels(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                        picture.height, QImage::Format_ARGB32);
    picture_ = picture.pixels.empty() ? QImage() : pixels.copy();
    update();
}

void PlateLabel::DrawPicture() {
    const QSize size = picture_.size().scaled(rect().size(), Qt::KeepAspectRatio);
    QRect box(QPoint(), size);
    box.moveCenter(rect().center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(box, picture_);
}

// Read again for another file or size only.
void PlateLabel::ShowPreview(const std::string& path, QSize box) {
    if (path == previewFile_ && (path.empty() || preview_.isNull() || preview_.size() == box))
        return;
    previewFile_ = path;
    preview_ = path.empty() ? QImage() : LoadPicture(path, box, PictureFit::Stretch);
    SetMargin(path.empty() ? 0 : box.width() + 2 * PictureEdge);
}

// As many whole lines as there is room for.
void PlateLabel::DrawLog() {
    const int line = QFontMetrics(logFont_).lineSpacing();
    QRect box = rect().adjusted(PictureEdge, 0, -PictureEdge, 0);
    box.setTop(box.bottom() + 1 - box.height() / line * line);
    QPainter painter(this);
    painter.setClipRect(box);
    painter.setFont(logFont_);
    painter.setPen(logColour_);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, ToQString(Text()));
}

void PlateLabel::mousePressEvent(QMouseEvent* event) {
    ShadedLabel::mousePressEvent(event);
    dragFrom_ = event->position().toPoint().y();
}

void PlateLabel::mouseMoveEvent(QMouseEvent* event) {
    const int line = QFontMetrics(logFont_).lineSpacing();
    const int lines = (event->position().toPoint().y() - dragFrom_) / line;
    if (!scroll_ || lines == 0) return;
    dragFrom_ += lines * line;
    scroll_(lines);
    SetText(read_());
}

void PlateLabel::paintEvent(QPaintEvent* event) {
    if (scroll_) return DrawLog();
    ShadedLabel::paintEvent(event);
    if (!picture_.isNull()) DrawPicture();
    QPainter painter(this);
    painter.drawImage(QPoint(PictureEdge, PictureEdge), preview_);
    if (percent_ < 0) return;
    const int tall = height() / BarShare;
    const QRect bar(0, height() - tall, width(), tall);
    painter.fillRect(bar, ground_);
    painter.fillRect(QRect(bar.topLeft(), QSize(width() * percent_ / 100, tall)), bar_);
}

void ShareTextSizes(const std::vector<PlateLabel*>& shown) {
    struct Sizes {
        int least = std::numeric_limits<int>::max(), most = 0;
    };
    std::map<std::pair<int, int>, Sizes> byShape;
    for (const PlateLabel* label : shown) {
        Sizes& sizes = byShape[label->Shape()];
        sizes.least = std::min(sizes.least, label->TextSize());
        sizes.most = std::max(sizes.most, label->TextSize());
    }
    for (PlateLabel* label : shown) {
        const Sizes& sizes = byShape[label->Shape()];
        label->SetLargest(std::max(sizes.least, sizes.most * LeastShared / 100));
    }
}

} // namespace vk
