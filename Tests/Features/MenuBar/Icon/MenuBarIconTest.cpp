#include "Features/MenuBar/Icon/MenuBarIcon.h"

#include "Core/DesignSystem/Theme/Palette.h"

#include <QGuiApplication>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace quorvel;

namespace {

constexpr qreal dotX = 23;
constexpr qreal dotY = 16;

QImage image(qreal dotRadius, qreal scale)
{
    return MenuBarIcon::picture(dotRadius, scale).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// The colour at a point of the picture, at any scale.
QRgb at(const QImage &image, qreal scale, qreal x, qreal y)
{
    return image.pixel(int(x * scale), int(y * scale));
}

int count(const QImage &image, const QRect &area, QRgb colour)
{
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            found += image.pixel(x, y) == colour ? 1 : 0;
    return found;
}

/// The contrast of two colours by WCAG, which asks for 3 in graphics.
qreal contrast(const QColor &one, const QColor &other)
{
    const auto luminance = [](const QColor &colour) {
        const auto linear = [](qreal channel) {
            return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const qreal a = luminance(one) + 0.05;
    const qreal b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

} // namespace

class MenuBarIconTest final : public QObject
{
    Q_OBJECT

private slots:
    void iconHoldsEverySizeInDevicePixels()
    {
        const QIcon icon = MenuBarIcon::icon(MenuBarIcon::normalDotRadius);
        QCOMPARE(icon.availableSizes(), QList<QSize>({{28, 22}, {42, 33}, {56, 44}}));
        QVERIFY(!icon.isMask());
    }

    void radiiAreOneToOnePointThreeFive()
    {
        QCOMPARE(MenuBarIcon::normalDotRadius, 3.5);
        QCOMPARE(MenuBarIcon::largeDotRadius, 4.725);
    }

    void accentIsTheDotsColour() { QCOMPARE(QColor(Palette::accent), QColor(224, 138, 60)); }

    void everyPicture_data()
    {
        QTest::addColumn<qreal>("radius");
        QTest::addColumn<qreal>("scale");
        for (const qreal scale : {1.0, 1.5, 2.0}) {
            QTest::addRow("normal at %g", scale) << MenuBarIcon::normalDotRadius << scale;
            QTest::addRow("large at %g", scale) << MenuBarIcon::largeDotRadius << scale;
        }
    }

    void everyPicture()
    {
        QFETCH(const qreal, radius);
        QFETCH(const qreal, scale);
        const QPixmap picture = MenuBarIcon::picture(radius, scale);
        QCOMPARE(picture.size(), QSize(qRound(28 * scale), qRound(22 * scale)));
        QCOMPARE(picture.devicePixelRatio(), 1.0);

        const QImage pixels = image(radius, scale);
        for (const QPoint &corner : {pixels.rect().topLeft(), pixels.rect().topRight(),
                                     pixels.rect().bottomLeft(), pixels.rect().bottomRight()})
            QCOMPARE(pixels.pixel(corner), qRgba(0, 0, 0, 0));
        QCOMPARE(at(pixels, scale, dotX, dotY), Palette::accent);
        QCOMPARE(at(pixels, scale, 12 + 3, 9.5), Palette::espresso);
        QCOMPARE(at(pixels, scale, 12 + 3, 13), Palette::cream);
        QCOMPARE(at(pixels, scale, 10 + 3, 20), Palette::mocha);
    }

    void noPixelIsFaint_data() { everyPicture_data(); }

    /// Some status areas draw such a pixel as if it were opaque.
    void noPixelIsFaint()
    {
        QFETCH(const qreal, radius);
        QFETCH(const qreal, scale);
        const QImage pixels = image(radius, scale);
        for (int y = 0; y < pixels.height(); ++y)
            for (int x = 0; x < pixels.width(); ++x)
                QVERIFY(qAlpha(pixels.pixel(x, y)) == 0 || qAlpha(pixels.pixel(x, y)) >= 32);
    }

    void dotEndsAtItsRadiusAndHalfItsOutline_data()
    {
        QTest::addColumn<qreal>("radius");
        QTest::newRow("normal") << MenuBarIcon::normalDotRadius;
        QTest::newRow("large") << MenuBarIcon::largeDotRadius;
    }

    /// Goes left along the dot's row, where the dot covers the cup, at a scale that shows it
    /// exactly.
    void dotEndsAtItsRadiusAndHalfItsOutline()
    {
        QFETCH(const qreal, radius);
        constexpr qreal scale = 20;
        constexpr qreal halfOutline = 0.75;
        constexpr qreal within = 0.1;
        const QImage pixels = image(radius, scale);
        const auto leftOfCentre = [&](qreal distance) {
            return at(pixels, scale, dotX - distance, dotY);
        };
        QCOMPARE(leftOfCentre(radius - halfOutline - within), Palette::accent);
        QCOMPARE(leftOfCentre(radius - halfOutline + within), Palette::white);
        QCOMPARE(leftOfCentre(radius + halfOutline - within), Palette::white);
        QVERIFY(leftOfCentre(radius + halfOutline + within) != Palette::white);
        QCOMPARE(at(pixels, scale, dotX, dotY - radius), Palette::white);
        QCOMPARE(qAlpha(at(pixels, scale, dotX, dotY - radius - halfOutline - within)), 0);
    }

    // Deliberate: the large dot is wider than the space that the picture has for it.
    void largeDotIsCutOffAtThePicturesEdge()
    {
        const QImage large = image(MenuBarIcon::largeDotRadius, 2);
        QCOMPARE(large.pixel(large.width() - 1, int(dotY * 2)), Palette::white);
        const QImage normal = image(MenuBarIcon::normalDotRadius, 2);
        QCOMPARE(qAlpha(normal.pixel(normal.width() - 1, int(dotY * 2))), 0);
    }

    void largeDotHasMoreOfItsColour()
    {
        const QImage normal = image(MenuBarIcon::normalDotRadius, 2);
        const QImage large = image(MenuBarIcon::largeDotRadius, 2);
        QVERIFY(count(large, large.rect(), Palette::accent.rgb()) >
                count(normal, normal.rect(), Palette::accent.rgb()) * 3 / 2);
    }

    void cupFillsItsPlaceAndNoMore()
    {
        const QImage pixels = image(MenuBarIcon::normalDotRadius, 2);
        QRect drawn;
        for (int y = 0; y < pixels.height(); ++y)
            for (int x = 0; x < 2 * 18; ++x)
                if (qAlpha(pixels.pixel(x, y)) > 127)
                    drawn |= QRect(x, y, 1, 1);
        QVERIFY(drawn.left() >= 2 * 3);
        QVERIFY(drawn.left() <= 2 * 7);
        QVERIFY(drawn.top() <= 2 * 2);
        QVERIFY(drawn.bottom() >= 2 * 20);
    }

    void cupStandsOutFromLightAndDarkPanels()
    {
        const QColor light(0xf6, 0xf6, 0xf6);
        const QColor dark(0x2b, 0x2b, 0x2b);
        QVERIFY(contrast(QColor(Palette::mocha), light) >= 3);
        QVERIFY(contrast(QColor(Palette::espresso), light) >= 3);
        QVERIFY(contrast(QColor(Palette::cream), dark) >= 3);
        QVERIFY(contrast(QColor(Palette::accentDeep), light) >= 3);
        QVERIFY(contrast(QColor(Palette::accentDeep), dark) >= 3);
    }

    void longEdgesAreSharpAtScaleOne()
    {
        const QImage pixels = image(MenuBarIcon::normalDotRadius, 1);
        for (const int row : {19, 20})
            QCOMPARE(pixels.pixel(10, row), Palette::mocha);
        for (const int row : {18, 21})
            QCOMPARE(qAlpha(pixels.pixel(10, row)), 0);
        QCOMPARE(pixels.pixel(20, 9), Palette::cream);
        QCOMPARE(pixels.pixel(21, 9), Palette::mocha);
        QCOMPARE(qAlpha(pixels.pixel(22, 9)), 0);
    }
};

QTEST_MAIN(MenuBarIconTest)
#include "MenuBarIconTest.moc"
