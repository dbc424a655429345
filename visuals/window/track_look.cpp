#include "visuals/window/track_look.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vk {

namespace {

constexpr int AccentSamples = 24; // a side
constexpr int Blur = 12;          // pixels that a cover out of focus comes down to
constexpr int GroundDark = 190;   // of 255
constexpr double TitleShare = 0.19, ArtistShare = 0.135, LeastFont = 0.5; // of the text's height
const QColor TitleColour(245, 247, 252), ArtistColour(190, 200, 220);

Bitmap BitmapOf(const QImage& image) {
    Bitmap bitmap(image.width(), image.height());
    for (int y = 0; y < bitmap.height; ++y)
        std::memcpy(bitmap.Line(y), image.constScanLine(y),
                    sizeof(Pixel) * static_cast<std::size_t>(bitmap.width));
    return bitmap;
}

QImage Square(const QImage& image, int side) {
    const int edge = std::min(image.width(), image.height());
    return image.copy((image.width() - edge) / 2, (image.height() - edge) / 2, edge, edge)
        .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

QImage Disc() {
    constexpr int Side = 512;
    QImage image(Side, Side, QImage::Format_RGB32);
    image.fill(QColor(20, 27, 46));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto ring = [&](double radius, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(Side / 2.0, Side / 2.0), radius * Side, radius * Side);
    };
    ring(0.44, QColor(34, 46, 78));
    for (int groove = 0; groove < 5; ++groove)
        ring(0.40 - 0.045 * groove, groove % 2 ? QColor(34, 46, 78) : QColor(41, 56, 94));
    ring(0.165, QColor(76, 125, 255));
    ring(0.035, QColor(20, 27, 46));
    return image;
}

// The mean of its colours, each counting by how lively it is; never dark.
Pixel Accent(const QImage& cover) {
    const QImage small = Square(cover, AccentSamples);
    double red = 0, green = 0, blue = 0, all = 0.001;
    for (int y = 0; y < AccentSamples; ++y)
        for (int x = 0; x < AccentSamples; ++x) {
            const QColor colour = small.pixelColor(x, y);
            const double weight = std::pow(colour.hsvSaturationF() * colour.valueF(), 2) + 0.002;
            red += colour.redF() * weight;
            green += colour.greenF() * weight;
            blue += colour.blueF() * weight;
            all += weight;
        }
    const QColor mean =
        QColor::fromRgbF(static_cast<float>(red / all), static_cast<float>(green / all),
                         static_cast<float>(blue / all));
    const QColor lively =
        QColor::fromHsv(std::max(0, mean.hsvHue()), std::min(255, mean.hsvSaturation() * 5 / 4),
                        std::max(200, mean.value()));
    return lively.rgb();
}

QImage OutOfFocus(const QImage& cover, int width, int height) {
    QImage image = Square(cover, Blur);
    for (const int side : {Blur * 4, Blur * 12})
        image = image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image = image.scaled(width, height, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation)
                .copy(0, 0, width, height)
                .convertToFormat(QImage::Format_RGB32);
    QPainter(&image).fillRect(image.rect(), QColor(4, 6, 12, GroundDark));
    return image;
}

// As large as the box allows.
void DrawWrapped(QPainter& painter, const QRect& box, int flags, const QString& text, double size,
                 bool bold) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(bold);
    double pixels = size;
    while (pixels >= size * LeastFont) {
        font.setPixelSize(std::max(8, static_cast<int>(pixels)));
        painter.setFont(font);
        const QRect needed = painter.boundingRect(box, flags | Qt::TextWordWrap, text);
        if (needed.width() <= box.width() && needed.height() <= box.height()) break;
        pixels *= 0.9;
    }
    painter.setClipRect(box);
    painter.drawText(box, flags | Qt::TextWordWrap, text);
}

QImage TextOf(const TrackFactsShown& track, int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const int middle = height * 58 / 100, gap = height / 24;
    painter.setPen(TitleColour);
    DrawWrapped(painter, {0, 0, width, middle}, Qt::AlignLeft | Qt::AlignBottom, track.title,
                height * TitleShare, true);
    painter.setPen(ArtistColour);
    DrawWrapped(painter, {0, middle + gap, width, height - middle - gap},
                Qt::AlignLeft | Qt::AlignTop, track.artist, height * ArtistShare, false);
    return image;
}

} // namespace

TrackLook MakeTrackLook(const TrackFactsShown& track, const LookSizes& sizes, int width,
                        int height) {
    TrackLook look;
    if (sizes.cover <= 0) return look;
    const QImage cover = track.cover.isNull() ? Disc() : track.cover;
    look.cover = BitmapOf(Square(cover, sizes.cover));
    look.accent = Accent(cover);
    if (sizes.ground) look.ground = BitmapOf(OutOfFocus(cover, (width + 1) / 2, (height + 1) / 2));
    if (sizes.textWidth > 0) look.text = BitmapOf(TextOf(track, sizes.textWidth, sizes.textHeight));
    return look;
}

} // namespace vk
