#include "Core/DesignSystem/Rendering/ImageRenderer.h"

#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Tests/Support/QuickTest.h"

#include <QColor>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlEngine>
#include <QSGRendererInterface>
#include <QWindowList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const QVariantMap tag{{u"title"_s, u"Saved"_s}, {u"kind"_s, 1}};
const QVariantMap cup{{u"size"_s, 24}};

QImage onWhite(const QImage &image)
{
    QImage paper(image.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(paper.rect(), image);
    return paper;
}

/// The largest difference of any colour in any pixel of both pictures.
int largestDifference(const QImage &image, const QImage &other)
{
    int largest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb one = image.pixel(x, y);
            const QRgb two = other.pixel(x, y);
            largest =
                std::max({largest, std::abs(qRed(one) - qRed(two)),
                          std::abs(qGreen(one) - qGreen(two)), std::abs(qBlue(one) - qBlue(two))});
        }
    }
    return largest;
}

/// Whether a square of one point's pixels holds more than one colour.
bool hasDetail(const QImage &image, int side)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(x - x % side, y - y % side))
                return true;
    return false;
}

} // namespace

class ImageRendererTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_paintedByAnother = draw(u"Tag"_s, tag, 2);
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
    void init() { QuickTest::failOnWarnings(); }

    void aViewIsDrawnAsItIsOnScreen_data()
    {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QVariantMap>("properties");
        QTest::newRow("tag") << u"Tag"_s << tag;
        const QVariantMap label{{u"label"_s, u"Saved"_s},
                                {u"symbol"_s, u"checkmark"_s},
                                {u"color"_s, QColor(Qt::darkRed)},
                                {u"font"_s, QGuiApplication::font()}};
        QTest::newRow("row") << u"SymbolLabel"_s << label;
    }

    void aViewIsDrawnAsItIsOnScreen()
    {
        QFETCH(const QString, view);
        QFETCH(const QVariantMap, properties);
        QQuickWindow window;
        window.resize(300, 100);
        window.setColor(Qt::white);
        const auto object = ViewFactory::make(m_engine, u"DesignSystem"_s, view, properties);
        auto *item = qobject_cast<QQuickItem *>(object.get());
        item->setParentItem(window.contentItem());
        window.show();
        const QImage screen = window.grabWindow();
        const QImage image = onWhite(draw(view, properties, 1));
        QCOMPARE(image.size(), item->size().toSize());
        // Drawing on transparency and laying the result on white rounds once more.
        QVERIFY(largestDifference(image, screen) <= 2);
    }

    void theScaleIsInPixelsAPoint()
    {
        const QImage single = draw(u"Tag"_s, tag, 1);
        const QImage large = draw(u"Tag"_s, tag, 3);
        QCOMPARE(large.size(), 3 * single.size());
        QCOMPARE(large.devicePixelRatio(), 3.0);
        QVERIFY(hasDetail(large, 3));
    }

    void whereNothingIsDrawnThePictureIsTransparent()
    {
        const QImage image = draw(u"Tag"_s, tag, 2);
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        QVERIFY(image.pixelColor(8, image.height() / 2).alpha() > 0);
    }

    void whatPaintsItselfIsPaintedInAllPixels()
    {
        const QVariantMap twiceAsLarge{{u"size"_s, 48}};
        const QImage fine = onWhite(draw(u"CupGlyph"_s, cup, 2));
        const QImage large = onWhite(draw(u"CupGlyph"_s, twiceAsLarge, 1));
        // The edges differ slightly. In an enlarged picture they would differ by half a point.
        QVERIFY(largestDifference(fine, large) <= 16);
    }

    /// Next to a taller letter there is always room for them.
    void noLetterIsCutOff()
    {
        const auto text = [this](const QString &words) {
            return draw(u"PlainText"_s, {{u"text"_s, words}}, 2);
        };
        const QImage image = text(u"1.0000°N"_s);
        QCOMPARE(text(u"1.0000°N Ắ"_s).copy(image.rect()), image);
    }

    void withAnotherPainterThereIsNoPicture() { QVERIFY(m_paintedByAnother.isNull()); }

    void everyDrawingIsTheSame()
    {
        const QImage first = draw(u"Tag"_s, tag, 2);
        QVERIFY(!first.isNull());
        QCOMPARE(draw(u"Tag"_s, tag, 2), first);
    }

    void noWindowIsShown()
    {
        QVERIFY(!draw(u"Tag"_s, tag, 2).isNull());
        QCOMPARE(QGuiApplication::allWindows(), QWindowList());
    }

    void aViewThatCannotBeMadeHasNoPicture() { QVERIFY(draw(u"NoSuchView"_s, {}, 2).isNull()); }

private:
    [[nodiscard]] QImage draw(const QString &view, const QVariantMap &properties, double scale)
    {
        return ImageRenderer::image(m_engine, u"DesignSystem"_s, view, properties, scale);
    }

    QQmlEngine m_engine;
    QImage m_paintedByAnother = QImage(1, 1, QImage::Format_RGB32);
};

} // namespace quorvel::tests

int main(int argc, char **argv)
{
    qunsetenv("QT_QUICK_BACKEND");
    QGuiApplication application(argc, argv);
    quorvel::tests::ImageRendererTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ImageRendererTest.moc"
