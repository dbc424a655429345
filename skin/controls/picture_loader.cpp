#include "skin/controls/picture_loader.h"

#include "platform/files.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <iterator>

namespace vk {

namespace {

constexpr std::size_t FileLimit = 32u << 20; // bytes
constexpr qint64 PixelLimit = 16'000'000;    // decoded whole: 64 MB
// A JPEG decoded small never stands in memory whole: its coded bytes (32 MB), a few rows of it, and
// the picture at four times the box at most or at an eighth of its own size: 4 MB.
constexpr qint64 ScaledPixelLimit = 64'000'000;
constexpr qint64 ScaledExcess = 4; // what is decoded of it may be twice as wide and high
constexpr int ScanLimit = 64;      // of a JPEG
constexpr int HonestSingle = 2;    // its one scan and that of a thumbnail in it

QSize Fitted(QSize own, QSize box, PictureFit fit) {
    if (fit == PictureFit::Within) box = box.boundedTo(own);
    return own.scaled(box, fit == PictureFit::Stretch ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio)
        .expandedTo({1, 1});
}

qint64 Area(QSize size) {
    return qint64{size.width()} * size.height();
}

// Decoded at twice the wanted size at most; the rest is done by the smooth scaling after it.
void DecodeSmall(QImageReader& reader, QSize box) {
    const QSize own = reader.size();
    const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize wanted =
        own.scaled((turned ? box.transposed() : box) * 2, Qt::KeepAspectRatioByExpanding);
    if (wanted.width() < own.width() && wanted.height() < own.height())
        reader.setScaledSize(wanted);
}

// A file can say of itself that it is anything, and not every reader is meant for foreign files.
bool IsTrusted(const QByteArray& format) {
    constexpr const char* Formats[] = {"jpeg", "png", "gif", "bmp", "webp", "ico"};
    return std::any_of(std::begin(Formats), std::end(Formats),
                       [&](const char* known) { return format == known; });
}

// A JPEG in scans is decoded once for each, whatever its file's length, and kept whole in memory
// meanwhile: honest ones have a dozen. Within the coded pixels the markers cannot occur.
int ScansOf(const QByteArray& data) {
    int scans = 0;
    for (qsizetype at = -1; scans <= ScanLimit && (at = data.indexOf("\xFF\xDA", at + 1)) >= 0;)
        ++scans;
    return scans;
}

QImage Decode(QImageReader& reader, const QByteArray& data, QSize box) {
    if (!IsTrusted(reader.format())) return {};
    const QSize own = reader.size();
    if (!own.isValid() || own.isEmpty()) return {};
    const bool jpeg = reader.format() == "jpeg";
    const int scans = jpeg ? ScansOf(data) : 0;
    if (scans > ScanLimit) return {};
    const bool inScans = scans > HonestSingle || data.contains("\xFF\xC2");
    const qint64 pixels = Area(own);
    if (pixels > (jpeg && !inScans ? ScaledPixelLimit : PixelLimit)) return {};
    if (jpeg) DecodeSmall(reader, box);
    const QSize small = reader.scaledSize();
    // A narrow picture, or a large box, leaves little or nothing to be scaled away.
    if (pixels > PixelLimit && (!small.isValid() || Area(small) * ScaledExcess > PixelLimit))
        return {};
    return reader.read();
}

} // namespace

QImage PictureFromBytes(std::string_view bytes, QSize box, PictureFit fit) {
    if (box.isEmpty() || bytes.size() > FileLimit) return {};
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QImage image = Decode(reader, data, box);
    if (image.isNull()) return {};
    // Colours of clear pixels must not bleed into the edges.
    const auto format =
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return image.convertToFormat(format).scaled(Fitted(image.size(), box, fit),
                                                Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage LoadPicture(const std::string& path, QSize box, PictureFit fit) {
    if (path.empty() || box.isEmpty()) return {};
    const auto bytes = ReadWholeFile(path, FileLimit + 1);
    return bytes ? PictureFromBytes(*bytes, box, fit) : QImage();
}

} // namespace vk
