#include "Models/WeatherSnapshot.h"
#include "Tests/Features/History/HistoryOnScreen.h"
#include "Tests/Support/ViewLook.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPointF>
#include <QQuickItem>
#include <QRectF>
#include <QTest>
#include <QVariant>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

Visits twoVisits()
{
    const auto plain = visit(u"2026-11-20T09:30:00Z"_s);
    const auto noted = visit(u"2026-11-21T08:05:00Z"_s, cafe(u"Door"_s));
    noted->setNote(u"By the window."_s);
    noted->setRatings({.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 1});
    noted->setWeather(WeatherSnapshot{.temperatureC = 21.5, .weatherCode = 61, .isDay = true});
    return {plain, noted};
}

} // namespace

/// How the window of the history looks: its header, a row, a day, and what stands in for the list.
class HistoryLookTest final : public QObject
{
    Q_OBJECT

private slots:
    static void init() { QuickTest::failOnWarnings(); }
    void cleanup() { m_history.reset(); }

    void textsHaveTheirLook_data()
    {
        ViewLook::addColumns();
        ViewLook::addText(u"Your check-ins"_s, "textPrimary", "cafeName");
        ViewLook::addText(u"2 visits · 1 cafés this week"_s, "textSecondary", "caption");
        ViewLook::addText(u"New check-in"_s, "textSecondary", "captionMedium");
        ViewLook::addText(u"TODAY"_s, "textSecondary", "eyebrow");
        ViewLook::addText(u"YESTERDAY"_s, "textSecondary", "eyebrow");
        ViewLook::addText(u"Door"_s, "textPrimary", "bodyMedium");
        ViewLook::addText(u"08:05 · 22°"_s, "textSecondary", "caption");
        ViewLook::addText(u"09:30"_s, "textSecondary", "caption");
        ViewLook::addText(u"By the window."_s, "textSecondary", "caption");
        ViewLook::addText(u"Unknown café"_s, "textPrimary", "bodyMedium");
        for (const auto &label : {u"Wifi"_s, u"Power"_s, u"Quiet"_s, u"Calls"_s})
            ViewLook::addText(label, "textTertiary", "ratingLabel");
    }

    void textsHaveTheirLook()
    {
        open(twoVisits());
        ViewLook::compareText(history().window());
    }

    void theHeaderNamesTheWindowAndLeadsBackToThePanel()
    {
        open(twoVisits());
        const QQuickItem *title = history().text(u"Your check-ins"_s);
        const QQuickItem *week = history().text(u"2 visits · 1 cafés this week"_s);
        QQuickItem *button = history().control(u"New check-in"_s);
        QVERIFY(ViewLook::down(title, week) > 0);
        QVERIFY(ViewLook::across(title, button) > 0);
        ViewLook::compareSymbol(button, u"plus"_s, 12, "accent");
        history().click(button);
        QVERIFY(!history().window().isVisible());
    }

    void aRowHasItsPaddingAndSpacing()
    {
        open(twoVisits());
        QQuickItem *row = history().control(u"Door"_s);
        const QQuickItem *thumbnail = thumbnailOf(row);
        const QQuickItem *name = QuickTest::find(row, "text", u"Door"_s);
        const QQuickItem *note = QuickTest::find(row, "text", u"By the window."_s);
        const auto columns = columnsOf(row);
        const QQuickItem *chevron = QuickTest::find(row, "name", u"chevron.right"_s);
        QCOMPARE(ViewLook::margins(thumbnail, row).left(), 16.0);
        QCOMPARE(ViewLook::across(thumbnail, name), 12.0);
        QCOMPARE(ViewLook::across(note, columns.first()), 12.0);
        QCOMPARE(ViewLook::across(columns.last(), chevron), 12.0);
        QCOMPARE(ViewLook::margins(chevron, row).right(), 16.0);
        QCOMPARE(ViewLook::margins(thumbnail, row).top(), 8.0);
        QCOMPARE(ViewLook::margins(thumbnail, row).bottom(), 8.0);
        ViewLook::compareSymbol(row, u"chevron.right"_s, 12, "textTertiary");
    }

    void aTallNoteKeepsThePaddingOfItsRow()
    {
        auto visits = twoVisits();
        visits.back()->setNote(u"By the window, where nobody passes by. "_s.repeated(5));
        open(visits);
        QQuickItem *row = history().control(u"Door"_s);
        const QQuickItem *note = QuickTest::find(row, "text", visits.back()->note());
        QCOMPARE(note->property("lineCount"), QVariant(2));
        const QQuickItem *texts = note->parentItem();
        QVERIFY(texts->height() > thumbnailOf(row)->height());
        QCOMPARE(ViewLook::margins(texts, row).top(), 8.0);
        QCOMPARE(ViewLook::margins(texts, row).bottom(), 8.0);
    }

    void theMomentStandsBesideTheNameAndTheNoteBelow()
    {
        open(twoVisits());
        const QQuickItem *name = history().text(u"Door"_s);
        const QQuickItem *note = history().text(u"By the window."_s);
        QVERIFY(ViewLook::across(name, history().text(u"08:05 · 22°"_s)) > 0);
        QVERIFY(ViewLook::down(name, note) > 0);
        QCOMPARE(ViewLook::place(note).left(), ViewLook::place(name).left());
        QVERIFY(!note->property("truncated").toBool());
    }

    void theFourColumnsShowTheirOwnScores()
    {
        open(twoVisits());
        QStringList seen;
        double right = 0;
        for (QQuickItem *column : columnsOf(history().control(u"Door"_s))) {
            const QQuickItem *dots = ViewLook::findClass(column, "quorvel::RatingDots");
            QVERIFY(QuickTest::find(column, "text", column->property("label"))->isVisible());
            seen.append(column->property("label").toString() + u' ' +
                        dots->property("score").toString());
            QVERIFY(ViewLook::place(column).left() > right);
            right = ViewLook::place(column).right();
        }
        QCOMPARE(seen, (QStringList{u"Wifi 5"_s, u"Power 4"_s, u"Quiet 2"_s, u"Calls 1"_s}));
    }

    void theThumbnailIsTheWeatherOrACup()
    {
        open(twoVisits());
        QQuickItem *wet = history().control(u"Door"_s);
        QCOMPARE(thumbnailOf(wet)->property("color").value<QColor>(), ViewLook::color("card"));
        const QQuickItem *glyph = ViewLook::findClass(wet, "quorvel::WeatherGlyph");
        QVERIFY(glyph->isVisible());
        QCOMPARE(glyph->property("code"), QVariant(61));
        QCOMPARE(glyph->property("isDay"), QVariant(true));
        QVERIFY(!QuickTest::find(wet, "name", u"cup.and.saucer"_s)->isVisible());
        QQuickItem *plain = history().control(u"Unknown café"_s);
        QVERIFY(QuickTest::find(plain, "name", u"cup.and.saucer"_s)->isVisible());
        QVERIFY(!ViewLook::findClass(plain, "quorvel::WeatherGlyph")->isVisible());
    }

    void aRowUnderThePointerHasTheColourOfHovering()
    {
        open(twoVisits());
        QQuickItem *row = history().control(u"Door"_s);
        const QQuickItem *fill = QuickTest::find(row, "radius", row->property("cornerRadius"));
        QCOMPARE(fill->property("color").value<QColor>(), QColor(Qt::transparent));
        QTest::mouseMove(&history().window(), QuickTest::centre(row));
        QCOMPARE(fill->property("color").value<QColor>(), ViewLook::color("hover"));
        QCOMPARE(fill->size(), row->size());
    }

    void aDayHasItsPaddingOnAFaintCard()
    {
        open(twoVisits());
        const QQuickItem *text = history().text(u"TODAY"_s);
        QQuickItem *day = text->parentItem();
        QCOMPARE(ViewLook::margins(text, day).left(), 16.0);
        QCOMPARE(ViewLook::margins(text, day).top(), 4.0);
        QCOMPARE(ViewLook::margins(text, day).bottom(), 4.0);
        const QQuickItem *ground = QuickTest::find(day, "color", ViewLook::color("card"));
        QCOMPARE(ground->size(), day->size());
        QVERIFY(ground->opacity() > 0 && ground->opacity() < 1);
    }

    void theListHasItsPadding()
    {
        open(twoVisits());
        const QQuickItem *list = history().shown("count", 4);
        QCOMPARE(contentMargins(history().control(u"Door"_s)).left(), 16.0);
        QCOMPARE(contentMargins(history().control(u"Door"_s)).right(), 16.0);
        QCOMPARE(contentMargins(list).top(), 16.0);
        QCOMPARE(contentMargins(list).bottom(), 16.0);
    }

    void anEmptyHistorySaysHowToBegin_data()
    {
        ViewLook::addColumns();
        ViewLook::addText(u"No check-ins yet"_s, "textPrimary", "body");
        ViewLook::addText(u"Check in at a café from the menu bar to start your history."_s,
                          "textSecondary", "caption");
        ViewLook::addText(u"0 visits · 0 cafés this week"_s, "textSecondary", "caption");
    }

    void anEmptyHistorySaysHowToBegin()
    {
        open({});
        ViewLook::compareText(history().window());
    }

    void anEmptyHistoryHasItsPaddingAndSpacing()
    {
        open({});
        const QQuickItem *title = history().text(u"No check-ins yet"_s);
        const QQuickItem *hint =
            history().text(u"Check in at a café from the menu bar to start your history."_s);
        QQuickItem *state = title->parentItem();
        const QQuickItem *cup = QuickTest::find(state, "name", u"cup.and.saucer"_s);
        ViewLook::compareSymbol(state, u"cup.and.saucer"_s, 32, "textTertiary");
        QCOMPARE(ViewLook::margins(cup, state).top(), 24.0);
        QCOMPARE(ViewLook::down(cup, title), 8.0);
        QCOMPARE(ViewLook::down(title, hint), 8.0);
        QCOMPARE(ViewLook::margins(hint, state), QMarginsF(24, hint->y(), 24, 24));
        QCOMPARE(contentMargins(state).left(), 16.0);
        QCOMPARE(contentMargins(state).right(), 16.0);
        for (const QQuickItem *item : {cup, title, hint})
            QCOMPARE(ViewLook::place(item).center().x(), ViewLook::place(state).center().x());
        QCOMPARE(hint->property("horizontalAlignment").toInt(), int(Qt::AlignHCenter));
    }

    void aFailureIsInTheColourOfErrors()
    {
        m_history.emplace(Visits());
        history().world.repository.failing = {u"allCheckIns"_s};
        history().world.repository.failure = u"Disk full."_s;
        history().open();
        const QQuickItem *error = history().text(u"Network error: Disk full."_s);
        QCOMPARE(error->property("color").value<QColor>(), ViewLook::color("error"));
        QCOMPARE(error->property("font").value<QFont>(), ViewLook::font("body"));
        QCOMPARE(contentMargins(error).left(), 16.0);
        QCOMPARE(contentMargins(error).right(), 16.0);
        QVERIFY(!history().text(u"No check-ins yet"_s));
        QVERIFY(history().text(u"0 visits · 0 cafés this week"_s));
    }

private:
    void open(const Visits &visits)
    {
        m_history.emplace(visits);
        history().open();
    }
    [[nodiscard]] HistoryOnScreen &history() { return *m_history; }
    /// Within what is left of the window below the header.
    [[nodiscard]] QMarginsF contentMargins(const QQuickItem *item)
    {
        const QQuickItem *header = history().control(u"New check-in"_s)->parentItem();
        const QRectF area(QPointF(0, ViewLook::place(header).bottom()),
                          QPointF(history().window().width(), history().window().height()));
        const QRectF place = ViewLook::place(item);
        return {place.left() - area.left(), place.top() - area.top(), area.right() - place.right(),
                area.bottom() - place.bottom()};
    }
    [[nodiscard]] static const QQuickItem *thumbnailOf(QQuickItem *row)
    {
        return QuickTest::find(row, "name", u"cup.and.saucer"_s)->parentItem();
    }
    [[nodiscard]] static QList<QQuickItem *> columnsOf(QQuickItem *row)
    {
        QList<QQuickItem *> columns;
        for (QQuickItem *item : QuickTest::itemsUnder(row))
            if (item->inherits("quorvel::RatingDots"))
                columns.append(item->parentItem());
        return columns;
    }

    std::optional<HistoryOnScreen> m_history;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::HistoryLookTest)
#include "HistoryLookTest.moc"
