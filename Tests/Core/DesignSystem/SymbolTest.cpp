#include "Core/DesignSystem/Symbol.h"

#include "Core/DesignSystem/SymbolDrawing.h"

#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

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

/// The smallest rectangle that holds every pixel that is not wholly transparent.
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

} // namespace

class SymbolTest final : public QObject
{
    Q_OBJECT

private slots:
    void namesOfTheScreensAreKnown()
    {
        for (const auto &name : {u"clock"_s, u"cup.and.saucer.fill"_s})
            QVERIFY2(SymbolDrawing::names().contains(name), qPrintable(name));
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
        QVERIFY(bounds.width() >= size * 7 / 10);
        QVERIFY(bounds.height() >= size * 6 / 10);
    }

    void everySymbolIsOfOneColor_data() { addSymbolsAndSizes(); }

    void everySymbolIsOfOneColor()
    {
        QFETCH(QString, name);
        QFETCH(int, size);
        const QImage image = painted(name, QColor(224, 138, 60), size);
        int solid = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() == 255) {
                    ++solid;
                    QCOMPARE(pixel, QColor(224, 138, 60));
                }
            }
        }
        QVERIFY2(solid > 0, "no pixel is covered fully: the symbol would look washed out");
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
