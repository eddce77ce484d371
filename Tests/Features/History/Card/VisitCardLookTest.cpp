#include "Models/WeatherSnapshot.h"
#include "Tests/Features/History/HistoryOnScreen.h"
#include "Tests/Support/ViewLook.h"

#include <QColor>
#include <QObject>
#include <QQuickItem>
#include <QTest>
#include <QVariant>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

Visits oneVisit()
{
    const auto there = visit(u"2025-03-03T14:05:00Z"_s, cafe(u"Door"_s));
    there->cafe()->setLastKnownSSID(u"Blue"_s);
    there->setAddress(u"12 Long Street"_s);
    there->setNote(u"By the window."_s);
    there->setRatings({.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 0});
    there->setWeather(WeatherSnapshot{.temperatureC = 21.5, .weatherCode = 61, .isDay = true});
    return {there};
}

} // namespace

/// How an open visit looks: its card, and the bar above it.
class VisitCardLookTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QuickTest::failOnWarnings();
        m_history.emplace(oneVisit());
        history().world.savePassword(u"secret"_s, u"Blue"_s);
        history().open();
        history().window().resize(600, 900);
        history().screen.openVisit(1);
        HistoryWorld::finishLoading();
        history().settle();
    }
    void cleanup()
    {
        HistoryWorld::finishLoading();
        m_history.reset();
    }

    void textsHaveTheirLook_data()
    {
        ViewLook::addColumns();
        ViewLook::addText(u"Check-ins"_s, "textPrimary", "bodyMedium");
        ViewLook::addText(u"22°"_s, "textPrimary", "chipTemperature");
        ViewLook::addText(u"Checked in"_s, "textPrimary", "captionSemibold");
        ViewLook::addText(u"Door"_s, "textPrimary", "cardTitle");
        ViewLook::addText(u"Mon, Mar 3 · 14:05"_s, "textSecondary", "caption");
        ViewLook::addText(u"12 Long Street"_s, "textPrimary", "body");
        ViewLook::addText(u"1.0000°N, 2.0000°E"_s, "textSecondary", "body");
        ViewLook::addText(u"HOW IT RATED"_s, "textTertiary", "trackedEyebrow");
        for (const auto &label : {u"WiFi speed"_s, u"Power outlets"_s, u"Quiet"_s, u"Calls"_s})
            ViewLook::addText(label, "textSecondary", "body");
        ViewLook::addText(u"By the window."_s, "textPrimary", "body");
        ViewLook::addText(u"Scan to join wifi"_s, "textSecondary", "captionMedium");
        ViewLook::addText(u"Blue"_s, "textPrimary", "bodyMedium");
        ViewLook::addText(u"Logged with Quorvel"_s, "accent", "captionSemibold");
    }

    void textsHaveTheirLook() { ViewLook::compareText(history().window()); }

    void theBarAboveTheCardHasItsPadding()
    {
        QQuickItem *back = history().control(u"Check-ins"_s);
        const QQuickItem *share = history().control(u"Share"_s);
        const QQuickItem *bar = back->parentItem();
        QCOMPARE(ViewLook::margins(back, bar).left(), 14.0);
        QCOMPARE(ViewLook::margins(back, bar).top(), 8.0);
        QCOMPARE(ViewLook::margins(back, bar).bottom(), 8.0);
        QCOMPARE(ViewLook::margins(share, bar), QMarginsF(share->x(), 8, 14, 8));
        QVERIFY(QuickTest::find(back, "name", u"chevron.left"_s)->isVisible());
        QCOMPARE(share->property("symbol"), QVariant(u"square.and.arrow.up"_s));
        const QQuickItem *text = history().text(u"Share"_s);
        QCOMPARE(text->property("color").value<QColor>(), QColor(Qt::white));
    }

    void theCardHasRoomAroundIt()
    {
        history().window().resize(480, 500);
        history().settle();
        const QQuickItem *area = history().shown("canScroll", true);
        QCOMPARE(card()->x(), 30.0);
        QCOMPARE(card()->y(), 14.0);
        QCOMPARE(area->property("contentHeight").toDouble(), 14 + card()->height() + 14);
        history().window().setMinimumSize({});
        history().window().resize(400, 500);
        history().settle();
        QCOMPARE(card()->x(), 16.0);
    }

    void theCardIsOutlinedInItsShape()
    {
        QCOMPARE(card()->size().width(), 420.0);
        QQuickItem *outline = card()->childItems().last();
        QCOMPARE(outline->size(), card()->size());
        QCOMPARE(outline->property("radius"), card()->property("cornerRadius"));
        compareBorder(outline);
        QVERIFY(ViewLook::findClass(card(), "quorvel::SoftShadow")->isVisible());
    }

    void theChipsLieAtBothEndsOfTheBanner()
    {
        const QQuickItem *banner = ViewLook::findClass(card(), "quorvel::VisitBanner");
        const QMarginsF weather = ViewLook::margins(weatherChip(), banner);
        const QMarginsF pill = ViewLook::margins(checkedInPill(), banner);
        QCOMPARE(weather.left(), 12.0);
        QCOMPARE(weather.bottom(), 12.0);
        QCOMPARE(pill.right(), 12.0);
        QCOMPARE(ViewLook::place(checkedInPill()).center().y(),
                 ViewLook::place(weatherChip()).center().y());
        QVERIFY(ViewLook::across(weatherChip(), checkedInPill()) > 0);
    }

    void withoutWeatherThePillLiesAtTheInset()
    {
        history().screen.closeVisit();
        history().world.repository.visits.front()->setWeather(std::nullopt);
        history().screen.openVisit(1);
        history().settle();
        const QQuickItem *banner = ViewLook::findClass(card(), "quorvel::VisitBanner");
        const QMarginsF pill = ViewLook::margins(checkedInPill(), banner);
        QCOMPARE(pill.right(), 12.0);
        QCOMPARE(pill.bottom(), 12.0);
        QVERIFY(!ViewLook::findClass(card(), "quorvel::WeatherGlyph")->isVisible());
    }

    void theChipsHaveTheirPaddingAndSpacing()
    {
        const QQuickItem *glyph = ViewLook::findClass(weatherChip(), "quorvel::WeatherGlyph");
        const QQuickItem *temperature = history().text(u"22°"_s);
        QCOMPARE(ViewLook::margins(glyph, weatherChip()).left(), 11.0);
        QCOMPARE(ViewLook::across(glyph, temperature), 7.0);
        QCOMPARE(ViewLook::margins(temperature, weatherChip()).right(), 11.0);
        compareVertically(weatherChip(), 5);
        const QQuickItem *mark = QuickTest::find(checkedInPill(), "name", checkmark);
        const QQuickItem *words = history().text(u"Checked in"_s);
        ViewLook::compareSymbol(checkedInPill(), checkmark, 13, "success");
        QCOMPARE(ViewLook::margins(mark, checkedInPill()).left(), 10.0);
        QCOMPARE(ViewLook::across(mark, words), 6.0);
        QCOMPARE(ViewLook::margins(words, checkedInPill()).right(), 10.0);
        compareVertically(checkedInPill(), 4);
        for (const QQuickItem *chip : {weatherChip(), checkedInPill()}) {
            const auto white = chip->property("color").value<QColor>();
            QCOMPARE(white.rgb(), QColor(Qt::white).rgb());
            QCOMPARE(qRound(white.alphaF() * 100), 92);
            QCOMPARE(chip->property("radius").toDouble(), chip->height() / 2);
        }
        QCOMPARE(glyph->property("code"), QVariant(61));
    }

    void theBlocksHaveTheirPaddingAndSpacing()
    {
        const QList<QQuickItem *> blocks{
            title()->parentItem(), address(), ratings(), note(), wifi(), footer()};
        const QQuickItem *banner = ViewLook::findClass(card(), "quorvel::VisitBanner");
        QCOMPARE(ViewLook::down(banner, blocks.first()), 18.0);
        for (qsizetype index = 1; index < blocks.size(); ++index)
            QCOMPARE(ViewLook::down(blocks[index - 1], blocks[index]), 15.0);
        QCOMPARE(ViewLook::margins(footer(), card()).bottom(), 18.0);
        for (QQuickItem *block : {title()->parentItem(), address(), ratings(), note(), wifi()}) {
            QCOMPARE(ViewLook::margins(block, card()).left(), 18.0);
            QCOMPARE(ViewLook::margins(block, card()).right(), 18.0);
        }
    }

    void theMomentHasItsClock()
    {
        const QQuickItem *moment = history().text(u"Mon, Mar 3 · 14:05"_s);
        ViewLook::compareSymbol(moment->parentItem(), u"clock"_s, 11, "textSecondary");
        QVERIFY(ViewLook::down(title(), moment) > 0);
        QVERIFY(ViewLook::across(QuickTest::find(moment->parentItem(), "name", u"clock"_s),
                                 moment) > 0);
    }

    void theAddressIsOnACard()
    {
        const QQuickItem *pin = QuickTest::find(address(), "name", u"location.fill"_s);
        const QQuickItem *line = history().text(u"12 Long Street"_s);
        const QQuickItem *coordinates = history().text(u"1.0000°N, 2.0000°E"_s);
        QVERIFY(pin->isVisible());
        compareCard(address());
        QCOMPARE(ViewLook::margins(pin, address()).left(), 11.0);
        QCOMPARE(ViewLook::margins(line, address()).top(), 11.0);
        QCOMPARE(ViewLook::margins(line, address()).right(), 11.0);
        QCOMPARE(ViewLook::margins(coordinates, address()).bottom(), 11.0);
        QVERIFY(ViewLook::down(line, coordinates) > 0);
    }

    void eachScoreHasItsStars()
    {
        for (const auto &[label, score] :
             {std::pair(u"WiFi speed"_s, 5), std::pair(u"Power outlets"_s, 4),
              std::pair(u"Quiet"_s, 2), std::pair(u"Calls"_s, 0)}) {
            QQuickItem *cell = history().text(label)->parentItem();
            QCOMPARE(QuickTest::find(cell, "label", label)->property("value"), QVariant(score));
        }
        QVERIFY(ViewLook::down(history().text(u"HOW IT RATED"_s), history().text(u"WiFi speed"_s)) >
                0);
    }

    void theNoteHasItsPadding()
    {
        const QQuickItem *words = ViewLook::text(history().window(), u"By the window."_s);
        QCOMPARE(ViewLook::margins(words, note()), QMarginsF(13, 13, 13, 13));
        QCOMPARE(note()->property("radius"), QVariant(9.0));
        QCOMPARE(note()->property("color").value<QColor>(), ViewLook::color("accentSoft"));
    }

    void theCodeIsOnWhiteBesideItsWords()
    {
        compareCard(wifi());
        const QQuickItem *code = ViewLook::findClass(wifi(), "quorvel::WifiQRCode");
        const QQuickItem *paper = code->parentItem();
        QCOMPARE(paper->property("color").value<QColor>(), QColor(Qt::white));
        QCOMPARE(ViewLook::margins(paper, wifi()).left(), 11.0);
        QCOMPARE(ViewLook::margins(paper, wifi()).top(), 11.0);
        QCOMPARE(ViewLook::margins(paper, wifi()).bottom(), 11.0);
        const QQuickItem *words = history().text(u"Scan to join wifi"_s);
        QVERIFY(ViewLook::across(paper, words) > 0);
        QVERIFY(ViewLook::down(words, history().text(u"Blue"_s)) > 0);
    }

    void theFooterHasItsPaddingAndSpacing()
    {
        const QQuickItem *cup = footer()->childItems().first();
        const QQuickItem *words = history().text(u"Logged with Quorvel"_s);
        QCOMPARE(ViewLook::across(cup, words), 6.0);
        QCOMPARE(ViewLook::margins(cup, footer()).left(), 3.0);
        QCOMPARE(ViewLook::margins(words, footer()).right(), 3.0);
        compareVertically(footer(), 3);
        QCOMPARE(ViewLook::place(footer()).center().x(), ViewLook::place(card()).center().x());
    }

private:
    [[nodiscard]] HistoryOnScreen &history() { return *m_history; }
    [[nodiscard]] QQuickItem *card() { return history().shown("objectName", u"VisitCardView"_s); }
    [[nodiscard]] QQuickItem *title() { return history().text(u"Door"_s); }
    [[nodiscard]] QQuickItem *weatherChip() { return chipOf(history().text(u"22°"_s)); }
    [[nodiscard]] QQuickItem *checkedInPill() { return chipOf(history().text(u"Checked in"_s)); }
    [[nodiscard]] QQuickItem *address() { return blockOf(history().text(u"12 Long Street"_s)); }
    [[nodiscard]] QQuickItem *ratings() { return blockOf(history().text(u"HOW IT RATED"_s)); }
    [[nodiscard]] QQuickItem *note() { return blockOf(history().text(u"By the window."_s)); }
    [[nodiscard]] QQuickItem *wifi() { return blockOf(history().text(u"Blue"_s)); }
    [[nodiscard]] QQuickItem *footer() { return blockOf(history().text(u"Logged with Quorvel"_s)); }

    [[nodiscard]] static QQuickItem *chipOf(const QQuickItem *text)
    {
        return text->parentItem()->parentItem();
    }
    /// What of the column an item is in.
    [[nodiscard]] QQuickItem *blockOf(QQuickItem *item)
    {
        const QQuickItem *column = title()->parentItem()->parentItem();
        while (item->parentItem() != column)
            item = item->parentItem();
        return item;
    }

    static void compareBorder(const QQuickItem *item)
    {
        auto *border = item->property("border").value<QObject *>();
        QCOMPARE(border->property("width").toInt(), 1);
        QCOMPARE(border->property("color").value<QColor>(), ViewLook::color("border"));
    }
    static void compareCard(const QQuickItem *block)
    {
        compareBorder(block);
        QCOMPARE(block->property("color").value<QColor>(), ViewLook::color("card"));
        QCOMPARE(block->property("radius"), QVariant(10.0));
    }
    /// How far the highest of what is in it is from its edges.
    static void compareVertically(const QQuickItem *item, double padding)
    {
        const QQuickItem *row = item->inherits("QQuickRow") ? item : item->childItems().first();
        double highest = 0;
        for (const QQuickItem *part : row->childItems())
            highest = std::max(highest, part->height());
        QCOMPARE(item->height(), padding + highest + padding);
    }

    const QString checkmark = u"checkmark.circle.fill"_s;
    std::optional<HistoryOnScreen> m_history;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::VisitCardLookTest)
#include "VisitCardLookTest.moc"
