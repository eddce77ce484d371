#include "Core/DesignSystem/Symbols/Symbol.h"

#include "Core/DesignSystem/Symbols/SymbolDrawing.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSize>
#include <QTest>

#include <algorithm>
#include <utility>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

QImage painted(const QString &name, const QColor &color, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    Symbol symbol;
    symbol.setName(name);
    symbol.setColor(color);
    symbol.setSize(size);
    QPainter painter(&image);
    symbol.paint(&painter);
    return image;
}

/// The smallest rectangle that contains all pixels that are not fully transparent.
QRect inked(const QImage &image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0)
                bounds |= QRect(x, y, 1, 1);
    }
    return bounds;
}

/// The covered area in pixels.
double ink(const QImage &image)
{
    double covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y)) / 255.0;
    return covered;
}

} // namespace

class SymbolTest final : public QObject
{
    Q_OBJECT

private slots:
    void namesOfTheScreensAreKnown()
    {
        const auto names =
            u"arrow.clockwise arrow.down.to.line calendar checkmark checkmark.circle.fill "
            "chevron.left chevron.right circle clock cloud cloud.bolt.rain cloud.drizzle cloud.fog "
            "cloud.moon cloud.rain cloud.snow cloud.sun cup.and.saucer cup.and.saucer.fill "
            "doc.on.doc exclamationmark.triangle eye eye.slash largecircle.fill.circle "
            "location.fill location.slash lock lock.fill magnifyingglass mappin.and.ellipse moon "
            "moon.stars.fill note.text photo plus power snowflake square.and.arrow.up star "
            "star.fill sun.max thermometer trash wifi wifi.slash xmark"_s.split(u' ');
        QStringList known = SymbolDrawing::names();
        known.sort();
        QCOMPARE(known, names);
    }

    void everySymbolFillsItsGridAndStaysInside_data() { addSymbolsAndSizes(); }

    void everySymbolFillsItsGridAndStaysInside()
    {
        QFETCH(QString, name);
        QFETCH(int, size);
        QImage canvas(QSize(size, size) * 2, QImage::Format_ARGB32);
        canvas.fill(Qt::transparent);
        const QRect cell(size / 2, size / 2, size, size);
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(cell.topLeft());
        painter.scale(size / SymbolDrawing::gridSize, size / SymbolDrawing::gridSize);
        SymbolDrawing::draw(painter, name);
        const QRect bounds = inked(canvas);
        QVERIFY(cell.contains(bounds));
        QVERIFY(std::max(bounds.width(), bounds.height()) >= size * 6 / 10);
        QVERIFY(std::min(bounds.width(), bounds.height()) >= size * 3 / 10);
    }

    void filledSymbolIsAsLargeAsItsOutlineAndCoversMore_data()
    {
        QTest::addColumn<QString>("outline");
        QTest::addColumn<QString>("filled");
        for (const auto &[outline, filled] :
             {std::pair{u"star"_s, u"star.fill"_s}, std::pair{u"lock"_s, u"lock.fill"_s},
              std::pair{u"cup.and.saucer"_s, u"cup.and.saucer.fill"_s},
              std::pair{u"circle"_s, u"checkmark.circle.fill"_s},
              std::pair{u"circle"_s, u"largecircle.fill.circle"_s}})
            QTest::addRow("%s", qUtf8Printable(filled)) << outline << filled;
    }

    void filledSymbolIsAsLargeAsItsOutlineAndCoversMore()
    {
        QFETCH(QString, outline);
        QFETCH(QString, filled);
        for (const int size : {11, 16, 32}) {
            const QImage open = painted(outline, Qt::black, size);
            const QImage full = painted(filled, Qt::black, size);
            QCOMPARE(inked(full), inked(open));
            QVERIFY(ink(full) > ink(open) * 1.2);
        }
    }

    void everyPairOfSymbolsDiffers()
    {
        QHash<QByteArray, QString> seen;
        for (const QString &name : SymbolDrawing::names()) {
            const QImage image = painted(name, Qt::black, 24);
            const QByteArray pixels(reinterpret_cast<const char *>(image.constBits()),
                                    image.sizeInBytes());
            QVERIFY2(!seen.contains(pixels), qPrintable(name + u" = "_s + seen.value(pixels)));
            seen.insert(pixels, name);
        }
    }

    void everySymbolIsOfOneColor_data() { addSymbolsAndSizes(); }

    void everySymbolIsOfOneColor()
    {
        QFETCH(QString, name);
        QFETCH(int, size);
        const QImage image = painted(name, QColor(224, 138, 60), size);
        int strongest = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                strongest = std::max(strongest, pixel.alpha());
                if (pixel.alpha() == 255)
                    QCOMPARE(pixel, QColor(224, 138, 60));
            }
        }
        QVERIFY2(strongest >= 150, "the symbol would look washed out");
    }

    void translucentColorShowsNoOverlaps()
    {
        const QImage image = painted(u"cup.and.saucer.fill"_s, QColor(0, 0, 0, 100), 32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                QVERIFY(qAlpha(image.pixel(x, y)) <= 100);
    }

    void sizeIsTheImplicitSize()
    {
        Symbol symbol;
        QCOMPARE(symbol.implicitWidth(), 16.0);
        QSignalSpy changed(&symbol, &Symbol::sizeChanged);
        symbol.setSize(24);
        QCOMPARE(symbol.implicitWidth(), 24.0);
        QCOMPARE(symbol.implicitHeight(), 24.0);
        QCOMPARE(changed.size(), 1);
    }

    void emptyNameIsNoSymbol()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QVERIFY(inked(painted({}, Qt::black, 24)).isEmpty());
    }

    void unknownNameDrawsNothingAndWarns()
    {
        QTest::ignoreMessage(QtWarningMsg, "No symbol is named \"no.such.symbol\"");
        QVERIFY(inked(painted(u"no.such.symbol"_s, Qt::black, 24)).isEmpty());
    }

private:
    static void addSymbolsAndSizes()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("size");
        for (const QString &name : SymbolDrawing::names())
            for (const int size : {11, 13, 16, 18, 24, 32})
                QTest::addRow("%s at %d", qUtf8Printable(name), size) << name << size;
    }
};

QTEST_MAIN(SymbolTest)
#include "SymbolTest.moc"
