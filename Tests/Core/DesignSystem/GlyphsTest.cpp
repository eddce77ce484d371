#include "Core/DesignSystem/Glyphs/SignalBarsView.h"
#include "Core/DesignSystem/Glyphs/WeatherGlyph.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Core/DesignSystem/Sheets/OpenSheet.h"
#include "Tests/Support/Patience.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QQuickItem>
#include <QRectF>
#include <QSignalSpy>
#include <QSizeF>
#include <QVariant>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {
namespace {

/// The colour of the most opaque pixels of `glyph`.
QColor tint(WeatherGlyph &glyph)
{
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    glyph.setSize(64);
    glyph.paint(&painter);
    QColor fullest = Qt::transparent;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > fullest.alpha())
                fullest = image.pixelColor(x, y);
    return fullest;
}

QColor tint(int code)
{
    WeatherGlyph glyph;
    glyph.setCode(code);
    return tint(glyph);
}

} // namespace

class GlyphsTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_view = openSheet();
        QVERIFY(m_view);
    }

    void cleanup()
    {
        m_view.reset();
        Theme::shared().setStyle(AppearanceStyle::Light);
    }

    static void barsBelowTheCountAreLitAndNeverMoreThanThree_data()
    {
        QTest::addColumn<int>("bars");
        QTest::addColumn<int>("lit");
        for (const auto &[bars, lit] :
             {std::pair{-1, 0}, std::pair{0, 0}, std::pair{1, 1}, std::pair{2, 2}, std::pair{3, 3},
              std::pair{4, 3}, std::pair{5, 3}, std::pair{100, 3}})
            QTest::addRow("%d", bars) << bars << lit;
    }

    static void barsBelowTheCountAreLitAndNeverMoreThanThree()
    {
        QFETCH(int, bars);
        QFETCH(int, lit);
        for (int index = 0; index < 5; ++index)
            QCOMPARE(SignalBarsView::isLit(index, bars), index < lit);
    }

    void litBarsAreInTheAccentColor()
    {
        const QColor on = Theme::shared().color()->accent();
        for (const int bars : {0, 2, 5}) {
            QQuickItem *view = item(u"bars%1"_s.arg(bars));
            for (int index = 0; index < 3; ++index) {
                const bool isLit = QuickTest::pixel(view, {index * 5 + 1.5, 12}) == on;
                QCOMPARE(isLit, index < std::min(bars, 3));
            }
        }
    }

    void barsStandOnOneLineInTheirHeights()
    {
        QQuickItem *view = item(u"bars5"_s);
        QCOMPARE(view->size(), QSizeF(13, 14));
        const QColor empty = Theme::shared().color()->background();
        const QList<double> heights{5, 9, 13};
        for (int index = 0; index < 3; ++index) {
            const double top = 14 - heights[index];
            const double x = index * 5 + 1.5;
            QCOMPARE(QuickTest::pixel(view, {x, top - 1.5}), empty);
            QCOMPARE_NE(QuickTest::pixel(view, {x, top + 1.5}), empty);
            QCOMPARE_NE(QuickTest::pixel(view, {x, 12.5}), empty);
        }
    }

    void barsAreThreeWideAndRounded()
    {
        QQuickItem *view = item(u"bars5"_s);
        const QColor empty = Theme::shared().color()->background();
        for (int index = 0; index < 3; ++index) {
            const double left = index * 5;
            QCOMPARE_NE(QuickTest::pixel(view, {left, 12}), empty);
            QCOMPARE_NE(QuickTest::pixel(view, {left + 2, 12}), empty);
            if (index < 2)
                QCOMPARE(QuickTest::pixel(view, {left + 3, 12}), empty);
            // A corner is lighter than the middle of its edge.
            QVERIFY(QuickTest::pixel(view, {left, 13}).lightness() >
                    QuickTest::pixel(view, {left + 1, 13}).lightness());
        }
    }

    void dotsUpToTheScoreAreLit()
    {
        const QColor on = Theme::shared().color()->accent();
        for (int score = 0; score <= 6; ++score) {
            QQuickItem *dots = QuickTest::find(item(u"dots%1"_s.arg(score)), "implicitHeight", 5.0);
            QCOMPARE(dots->size(), QSizeF(33, 5));
            for (int place = 1; place <= 5; ++place) {
                const QColor seen = QuickTest::pixel(dots, {place * 7 - 4.5, 2.5});
                QCOMPARE(seen == on, place <= score);
                QCOMPARE_NE(seen, Theme::shared().color()->background());
            }
        }
    }

    void columnHasItsLabelAboveItsDots()
    {
        QQuickItem *column = item(u"dots3"_s);
        const QQuickItem *label = QuickTest::find(column, "text", u"Quiet"_s);
        const QQuickItem *dots = QuickTest::find(column, "score", 3)->childItems().last();
        QCOMPARE(label->property("font").value<QFont>(), Theme::shared().font()->ratingLabel());
        QCOMPARE(label->property("color").value<QColor>(), Theme::shared().color()->textTertiary());
        QCOMPARE(dots->y(), label->height() + 3);
        QCOMPARE(QAccessible::queryAccessibleInterface(column)->text(QAccessible::Name),
                 u"Quiet 3 of 5"_s);
    }

    void glyphHasTheColorOfItsWeather_data()
    {
        QTest::addColumn<AppearanceStyle>("style");
        QTest::newRow("light") << AppearanceStyle::Light;
        QTest::newRow("dark") << AppearanceStyle::Dark;
    }

    void glyphHasTheColorOfItsWeather()
    {
        QFETCH(AppearanceStyle, style);
        Theme::shared().setStyle(style);
        const ThemeColor &color = *Theme::shared().color();
        QCOMPARE(tint(0).rgba(), color.starOn().rgba());
        QCOMPARE(tint(86).rgba(), QColor(0x5E9CC9).rgba());
        QCOMPARE(tint(61).rgba(), QColor(0x5E9CC9).rgba());
        // Only the light colour is opaque, so only that one is unchanged in a picture.
        QCOMPARE(tint(77).alpha(), color.textSecondary().alpha());
        if (style == AppearanceStyle::Light)
            QCOMPARE(tint(77).rgba(), color.textSecondary().rgba());
    }

    void whatStandsOnWhiteKeepsItsLightColors()
    {
        WeatherGlyph glyph;
        glyph.setCode(77);
        glyph.setOnWhite(true);
        const QColor light = Theme::shared().color()->textSecondary();
        QCOMPARE(tint(glyph).rgba(), light.rgba());
        Theme::shared().setStyle(AppearanceStyle::Dark);
        QCOMPARE(tint(glyph).rgba(), light.rgba());
        QCOMPARE(Theme::shared().lightColor()->textSecondary(), light);
        QVERIFY(Theme::shared().color()->textSecondary() != light);
    }

    void capsuleIsAroundItsContentAndWhiteInBothLooks()
    {
        QQuickItem *capsule = item(u"capsule"_s);
        const QQuickItem *row = item(u"glyphOnWhite"_s)->parentItem();
        QCOMPARE(row->property("leftPadding"), QVariant(11.0));
        QCOMPARE(capsule->size(), row->size());
        for (const auto style : {AppearanceStyle::Light, AppearanceStyle::Dark}) {
            Theme::shared().setStyle(style);
            QVERIFY(QuickTest::pixel(capsule, {8, capsule->height() / 2}).lightness() > 225);
        }
    }

    void shadowFadesAwayFromWhatThrowsIt()
    {
        QQuickItem *shadow = item(u"shadow"_s);
        const double reach = shadow->property("reach").toDouble();
        const auto lightness = [&](double distance) {
            return QuickTest::pixel(shadow, {shadow->width() / 2, reach - distance}).lightness();
        };
        const int ground = Theme::shared().color()->background().lightness();
        QVERIFY(lightness(1.5) < lightness(5));
        QVERIFY(lightness(5) < ground);
        QCOMPARE(lightness(reach - 0.5), ground);
        // The shadow falls downwards.
        const double below = shadow->height() - reach + 5;
        QVERIFY(QuickTest::pixel(shadow, {shadow->width() / 2, below}).lightness() < lightness(5));
    }

    static void glyphSaysItsConditionInWords()
    {
        WeatherGlyph glyph;
        QSignalSpy changed(&glyph, &WeatherGlyph::conditionChanged);
        glyph.setCode(86);
        QCOMPARE(glyph.conditionLabel(), u"Snow showers"_s);
        glyph.setIsDay(false);
        QCOMPARE(changed.size(), 2);
        glyph.setCode(86);
        QCOMPARE(changed.size(), 2);
    }

    void glyphIsAsLargeAsAsked() { QCOMPARE(item(u"day45"_s)->size(), QSizeF(22, 22)); }

    void newAppearanceRepaintsTheGlyphs()
    {
        QQuickItem *dots = QuickTest::find(item(u"dots3"_s), "implicitHeight", 5.0);
        QQuickItem *bars = item(u"bars5"_s);
        QCOMPARE(QuickTest::pixel(dots, {2.5, 2.5}), QColor(0xE08A3C));
        QCOMPARE(QuickTest::pixel(bars, {1.5, 12}), QColor(0xE08A3C));
        Theme::shared().setStyle(AppearanceStyle::Dark);
        QCOMPARE(QuickTest::pixel(dots, {2.5, 2.5}), QColor(0xE0A45C));
        QCOMPARE(QuickTest::pixel(bars, {1.5, 12}), QColor(0xE0A45C));
    }

    void steamRisesOnlyWhileItCanBeSeen()
    {
        QQuickItem *cup = item(u"cup"_s);
        QQuickItem *steam = cup->childItems().first();
        QVERIFY(steam->property("running").toBool());
        QTRY_VERIFY(steam->property("phase").toDouble() > 0);
        cup->setVisible(false);
        QVERIFY(!steam->property("running").toBool());
        cup->setVisible(true);
        QVERIFY(steam->property("running").toBool());
        m_view->hide();
        QVERIFY(!steam->property("running").toBool());
    }

    void steamReturnsToWhereItBegan()
    {
        QQuickItem *cup = item(u"cup"_s);
        m_view->hide();
        const QImage begun = steamAt(cup, 0);
        QVERIFY(steamAt(cup, 0.25) != begun);
        QVERIFY(steamAt(cup, 1) == begun);
    }

    void steamStaysWithinItsGlyph()
    {
        QQuickItem *cup = item(u"cup"_s);
        const QQuickItem *steam = cup->childItems().first();
        QCOMPARE(cup->size(), QSizeF(24, 24));
        QVERIFY(cup->boundingRect().contains(steam->mapRectToItem(cup, steam->boundingRect())));
    }

private:
    [[nodiscard]] QQuickItem *item(const QString &objectName) const
    {
        // Items made by a repeater are in the item tree, but they are not its object's children.
        return QuickTest::find(m_view->rootObject(), "objectName", objectName);
    }

    [[nodiscard]] QImage steamAt(QQuickItem *cup, double phase) const
    {
        cup->childItems().first()->setProperty("phase", phase);
        const QRectF place = cup->mapRectToScene(cup->boundingRect());
        return m_view->grabWindow().copy(place.toAlignedRect());
    }

    std::unique_ptr<QQuickView> m_view;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::GlyphsTest)
#include "GlyphsTest.moc"
