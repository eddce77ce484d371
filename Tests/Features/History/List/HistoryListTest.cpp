#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Features/History/HistoryOnScreen.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QColor>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QQuickItem>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr int manyVisits = 60;

/// Enough rows for several windows, on three days.
Visits visits()
{
    Visits result;
    for (int number = 0; number < manyVisits; ++number) {
        const int day = 19 + number * 3 / manyVisits;
        const auto date = u"2026-11-%1T08:%2:00Z"_s.arg(day).arg(number % 20, 2, 10, QChar(u'0'));
        result.push_back(visit(date, cafe(u"Door %1"_s.arg(number))));
    }
    return result;
}

} // namespace

class HistoryListTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QuickTest::failOnWarnings();
        m_history.emplace(visits());
        m_history->open();
    }
    void cleanup()
    {
        HistoryWorld::finishLoading();
        m_history.reset();
    }

    void anEmptyHistorySaysHowItBegins()
    {
        QVERIFY(!history().text(u"No check-ins yet"_s));
        history().world.repository.visits.clear();
        history().screen.appear();
        history().settle();
        QVERIFY(history().text(u"No check-ins yet"_s));
        QVERIFY(history().text(u"Check in at a café from the menu bar to start your history."_s));
    }

    void aClickAnywhereOnARowOpensItsVisit()
    {
        QQuickItem *row = history().control(u"Door 57"_s);
        for (const double x : {2.0, row->width() / 2, row->width() - 2}) {
            const QPoint at = row->mapToScene({x, row->height() - 2}).toPoint();
            QTest::mouseClick(&history().window(), Qt::LeftButton, {}, at);
            QVERIFY(history().screen.isVisitOpen());
            QCOMPARE(opened(), u"Door 57"_s);
            history().screen.closeVisit();
            history().settle();
        }
    }

    void aRowIsColouredWhileThePointerIsOnIt()
    {
        QQuickItem *row = history().control(u"Door 58"_s);
        const QPointF bare(60, 4);
        const QColor before = QuickTest::pixel(row, bare);
        QTest::mouseMove(&history().window(), QuickTest::centre(row));
        history().settle();
        QVERIFY(QuickTest::pixel(row, bare) != before);
        QTest::mouseMove(&history().window(), {5, 5});
        history().settle();
        QCOMPARE(QuickTest::pixel(row, bare), before);
    }

    void theFocusComesToTheFirstVisitInSight()
    {
        focusList();
        QCOMPARE(history().focused(), u"Door 59"_s);
    }

    void arrowsGoFromVisitToVisitAcrossDays()
    {
        focusList();
        history().key(Qt::Key_Down);
        QCOMPARE(history().focused(), u"Door 58"_s);
        for (int count = 0; count < 19; ++count)
            history().key(Qt::Key_Down);
        QCOMPARE(history().focused(), u"Door 39"_s);
        history().key(Qt::Key_Up);
        QCOMPARE(history().focused(), u"Door 40"_s);
    }

    void atBothEndsAnArrowGoesNoFurther()
    {
        focusList();
        history().key(Qt::Key_Up);
        QCOMPARE(history().focused(), u"Door 59"_s);
        history().key(Qt::Key_End);
        QCOMPARE(history().focused(), u"Door 0"_s);
        history().key(Qt::Key_Down);
        QCOMPARE(history().focused(), u"Door 0"_s);
        history().key(Qt::Key_Home);
        QCOMPARE(history().focused(), u"Door 59"_s);
    }

    void aPageIsAsManyVisitsAsAreInSight()
    {
        focusList();
        history().key(Qt::Key_PageDown);
        const QString last = history().focused();
        QVERIFY(last != u"Door 59"_s);
        const double height = list()->height();
        const double rest = list()->property("contentY").toDouble();
        QVERIFY(rest < height / 4);
        history().key(Qt::Key_PageDown);
        const double paged = list()->property("contentY").toDouble() - rest;
        QVERIFY(paged > height / 2 && paged <= height);
        history().key(Qt::Key_PageUp);
        QVERIFY(isInSight(last));
        for (int count = 0; count < manyVisits; ++count)
            history().key(Qt::Key_PageDown);
        QCOMPARE(history().focused(), u"Door 0"_s);
        for (int count = 0; count < manyVisits; ++count)
            history().key(Qt::Key_PageUp);
        QCOMPARE(history().focused(), u"Door 59"_s);
        QVERIFY(history().text(u"TODAY"_s));
    }

    void inAShortListAPageGoesToItsEnd()
    {
        Visits &visits = history().world.repository.visits;
        visits.erase(visits.begin(), visits.end() - 3);
        history().screen.appear();
        history().settle();
        history().shown("count", 4)->forceActiveFocus(Qt::TabFocusReason);
        history().key(Qt::Key_PageDown);
        QCOMPARE(history().focused(), u"Door 57"_s);
        history().key(Qt::Key_PageUp);
        QCOMPARE(history().focused(), u"Door 59"_s);
    }

    void theDayIsInSightWithItsFirstVisit()
    {
        focusList();
        history().key(Qt::Key_End);
        QVERIFY(!history().text(u"TODAY"_s));
        history().key(Qt::Key_Home);
        QQuickItem *day = history().text(u"TODAY"_s);
        QVERIFY(day);
        QVERIFY(list()->mapRectFromItem(day, day->boundingRect()).top() >= 0);
    }

    void theFocusedRowShowsIt()
    {
        focusList();
        QCOMPARE(ringsShown(), (QStringList{u"Door 59"_s}));
        history().key(Qt::Key_Down);
        QCOMPARE(ringsShown(), (QStringList{u"Door 58"_s}));
    }

    void returnAndSpaceOpenTheFocusedVisit_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("return") << Qt::Key_Return;
        QTest::newRow("enter") << Qt::Key_Enter;
        QTest::newRow("space") << Qt::Key_Space;
    }

    void returnAndSpaceOpenTheFocusedVisit()
    {
        QFETCH(const Qt::Key, key);
        focusList();
        history().key(Qt::Key_Down);
        QVERIFY(!history().screen.isVisitOpen());
        history().key(key);
        QCOMPARE(opened(), u"Door 58"_s);
    }

    void assistiveToolsAreToldOfARowAndMayOpenIt()
    {
        history().world.repository.visits.back()->setNote(u"Quiet."_s);
        history().screen.appear();
        history().settle();
        auto *row = QAccessible::queryAccessibleInterface(history().control(u"Door 59"_s));
        QCOMPARE(row->role(), QAccessible::Button);
        QCOMPARE(row->text(QAccessible::Name), u"Door 59"_s);
        QCOMPARE(row->text(QAccessible::Description), u"08:19, Quiet."_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(history().control(u"Door 58"_s))
                     ->text(QAccessible::Description),
                 u"08:18"_s);
        QVERIFY(row->state().focusable);
        row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(opened(), u"Door 59"_s);
    }

    void aVisitThatComesOnTopLeavesTheFocusWhereItIs()
    {
        focusList();
        history().key(Qt::Key_Down);
        history().world.repository.visits.push_back(
            visit(u"2026-11-21T11:00:00Z"_s, cafe(u"New Door"_s)));
        history().world.center.post(checkInDidSave);
        history().settle();
        QCOMPARE(history().focused(), u"Door 58"_s);
    }

private:
    [[nodiscard]] HistoryOnScreen &history() { return *m_history; }
    [[nodiscard]] QQuickItem *list() { return history().shown("count", manyVisits + 3); }
    void focusList()
    {
        list()->forceActiveFocus(Qt::TabFocusReason);
        history().settle();
    }
    [[nodiscard]] bool isInSight(const QString &label)
    {
        QQuickItem *row = history().control(label);
        return row &&
               list()->boundingRect().contains(list()->mapRectFromItem(row, row->boundingRect()));
    }
    [[nodiscard]] QString opened() { return history().screen.selected()->cafe()->name(); }
    [[nodiscard]] QStringList ringsShown()
    {
        QStringList rows;
        for (const QQuickItem *item : QuickTest::itemsUnder(list()))
            if (item->isVisible() && item->inherits("QQuickRectangle") &&
                item->property("controlRadius").isValid())
                rows.append(item->parentItem()->property("label").toString());
        return rows;
    }

    std::optional<HistoryOnScreen> m_history;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::HistoryListTest)
#include "HistoryListTest.moc"
