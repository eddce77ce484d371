#include "Platform/Pasteboard/PictureOffer.h"

#include <QBuffer>
#include <QColor>
#include <QImageWriter>
#include <QMetaType>
#include <QPainter>
#include <QVariant>

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr auto png = "image/png"_L1;
constexpr auto bmp = "image/bmp"_L1;
/// In percent. The pasting program waits for the encoding and stores the picture in its own format.
constexpr int quickCompression = 20;
constexpr QRgb paper = 0xFFFFFFFF;

/// For the format without transparency, which would show the colour below it.
QImage onPaper(const QImage &image)
{
    QImage sheet(image.size(), QImage::Format_RGB32);
    sheet.fill(paper);
    QPainter(&sheet).drawImage(sheet.rect(), image);
    return sheet;
}

QByteArray encoded(const QImage &image, const QByteArray &format)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setCompression(quickCompression);
    return writer.write(image) ? buffer.data() : QByteArray();
}

} // namespace

PictureOffer::PictureOffer(QImage image, Secrecy secrecy)
    : m_image(std::move(image))
    , m_secrecy(secrecy)
{}

QStringList PictureOffer::formats() const
{
    QStringList formats{png, bmp};
    if (m_secrecy == Secrecy::Secret)
        formats.append(secretMark);
    return formats;
}

QVariant PictureOffer::retrieveData(const QString &mimeType, QMetaType) const
{
    if (mimeType == png)
        return encoded(m_image, "png");
    if (mimeType == bmp)
        return encoded(onPaper(m_image), "bmp");
    if (mimeType == secretMark && m_secrecy == Secrecy::Secret)
        return QByteArray(secret);
    return {};
}

} // namespace quorvel
