#include "Platform/Pasteboard/PictureOffer.h"

#include <QColor>
#include <QImage>
#include <QSize>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

QImage picture()
{
    QImage image(4, 3, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::red);
    image.setPixelColor(0, 0, Qt::transparent);
    return image;
}

const QString secretMark = u"x-kde-passwordManagerHint"_s;

} // namespace

class PictureOfferTest final : public QObject
{
    Q_OBJECT

private slots:
    void aPictureComesInTheFormatsThatEveryProgramReads()
    {
        const PictureOffer offer(picture(), Secrecy::Open);
        QCOMPARE(offer.formats(), QStringList({u"image/png"_s, u"image/bmp"_s}));
        QVERIFY(!offer.hasFormat(secretMark));
        QCOMPARE(offer.data(secretMark), QByteArray());
    }

    void whatHoldsAPasswordSaysSo()
    {
        const PictureOffer offer(picture(), Secrecy::Secret);
        QCOMPARE(offer.formats(), QStringList({u"image/png"_s, u"image/bmp"_s, secretMark}));
        QCOMPARE(offer.data(secretMark), "secret"_ba);
    }

    void thePortablePictureIsThePixelsThemselves()
    {
        const PictureOffer offer(picture(), Secrecy::Open);
        const QImage read = QImage::fromData(offer.data(u"image/png"_s), "png");
        QCOMPARE(read.size(), QSize(4, 3));
        for (int y = 0; y < read.height(); ++y)
            for (int x = 0; x < read.width(); ++x)
                QCOMPARE(read.pixelColor(x, y), picture().pixelColor(x, y));
    }

    void theOpaquePictureLiesOnWhite()
    {
        const PictureOffer offer(picture(), Secrecy::Open);
        const QImage read = QImage::fromData(offer.data(u"image/bmp"_s), "bmp");
        QCOMPARE(read.size(), QSize(4, 3));
        QCOMPARE(read.pixelColor(0, 0), QColor(Qt::white));
        for (int x = 1; x < read.width(); ++x)
            QCOMPARE(read.pixelColor(x, 2), QColor(Qt::red));
    }

    void otherFormatsHoldNothing()
    {
        const PictureOffer offer(picture(), Secrecy::Secret);
        QCOMPARE(offer.data(u"image/jpeg"_s), QByteArray());
        QVERIFY(!offer.hasText() && !offer.hasUrls() && !offer.hasHtml());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::PictureOfferTest)
#include "PictureOfferTest.moc"
