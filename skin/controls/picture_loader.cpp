#include "skin/controls/picture_loader.h"

#include "platform/files.h"

#include <QBuffer>
#include <QImageReader>

namespace vk {

namespace {

constexpr std::size_t FileLimit = 32u << 20;    // bytes
constexpr qint64 PixelLimit = 16'000'000;       // decoded whole: 64 MB
constexpr qint64 ScaledPixelLimit = 40'000'000; // JPEG, decoded small

Qt::AspectRatioMode Aspect(PictureFit fit) {
    return fit == PictureFit::Keep ? Qt::KeepAspectRatio : Qt::IgnoreAspectRatio;
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

QImage Decode(QImageReader& reader, QSize box) {
    const QSize own = reader.size();
    if (!own.isValid() || own.isEmpty()) return {};
    const bool scales = reader.format() == "jpeg";
    const qint64 pixels = qint64{own.width()} * own.height();
    if (pixels > (scales ? ScaledPixelLimit : PixelLimit)) return {};
    if (scales) DecodeSmall(reader, box);
    return reader.read();
}

} // namespace

QImage LoadPicture(const std::string& path, QSize box, PictureFit fit) {
    if (path.empty() || box.isEmpty()) return {};
    const auto bytes = ReadWholeFile(path, FileLimit);
    if (!bytes) return {};
    QByteArray data = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QImage image = Decode(reader, box);
    if (image.isNull()) return {};
    // Colours of clear pixels must not bleed into the edges.
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(image.size().scaled(box, Aspect(fit)).expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                Qt::SmoothTransformation);
}

} // namespace vk
