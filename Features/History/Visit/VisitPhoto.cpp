#include "Features/History/Visit/VisitPhoto.h"

#include "Core/Support/Tasks/RunDetached.h"

#include <QColorSpace>
#include <QFileInfo>
#include <QImageIOHandler>
#include <QImageReader>
#include <QSize>

namespace quorvel::VisitPhoto {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 largestFileBytes = 64LL * 1024 * 1024;
/// A progressive JPEG is in memory as a whole while it is read, with three bytes per pixel.
constexpr qint64 largestPixels = 128'000'000;

/// The formats of photos. A drawing can read other files, so it is not a photo.
bool isPhotoFormat(const QByteArray &format)
{
    static const QList<QByteArray> formats{"avif", "bmp", "gif", "heic", "heif", "jpeg",
                                           "jpg",  "jxl", "png", "tif",  "tiff", "webp"};
    return formats.contains(format);
}

/// A pipe would block its reader.
bool isPhotoFile(const QFileInfo &file)
{
    return file.isFile() && !file.isSymLink() && file.size() <= largestFileBytes;
}

bool isPhotoSize(QSize size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() <= largestPixels;
}

/// The size to read; invalid for the photo's own size, since nothing is enlarged.
QSize reducedSize(QSize photo, QSize area)
{
    const QSize covering = photo.scaled(area.expandedTo({1, 1}), Qt::KeepAspectRatioByExpanding);
    return covering.width() < photo.width() ? covering : QSize();
}

std::optional<QImage> read(QImageReader &reader, QSize area)
{
    const QSize size = reader.size();
    if (!isPhotoFormat(reader.format()) || !isPhotoSize(size))
        return std::nullopt;
    const bool isTurned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    reader.setAutoTransform(true);
    reader.setScaledSize(reducedSize(size, isTurned ? area.transposed() : area));
    QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    image.convertToColorSpace(QColorSpace::SRgb);
    return image;
}

std::optional<QImage> read(const QString &path, QSize area)
{
    if (!isPhotoFile(QFileInfo(path)))
        return std::nullopt;
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return read(reader, area);
}

} // namespace

Task<std::optional<QImage>> load(const CheckInPhotoStore &store,
                                 const std::optional<QString> &fileName, QSize area)
{
    const bool isName = fileName && !fileName->contains(u'/');
    const QString path = isName ? store.url(*fileName).toLocalFile() : QString();
    return runDetached([path, area] { return read(path, area); });
}

} // namespace quorvel::VisitPhoto
