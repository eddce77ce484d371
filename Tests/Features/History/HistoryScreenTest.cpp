#include "Features/History/HistoryScreen.h"

#include "Tests/Features/History/HistoryWorld.h"
#include "Tests/Features/History/Visits.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>
#include <QVariant>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using Kind = HistoryScreen::Kind;

struct World : HistoryWorld
{
    HistoryScreen screen{&repository, facilities, pasteboard, renderCard};

    World()
    {
        const auto blue = cafe(u"Blue Door"_s);
        repository.visits = {visit(u"2026-11-02T09:00:00Z"_s, blue),
                             visit(u"2026-11-20T09:00:00Z"_s, cafe(u"Red Door"_s)),
                             visit(u"2026-11-21T09:00:00Z"_s, blue)};
    }
};

} // namespace

class HistoryScreenTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }
    void cleanup()
    {
        HistoryWorld::finishLoading();
        m_world.reset();
    }

    void beforeItsFirstShowingNothingIsLoaded()
    {
        QCOMPARE(screen().kind(), Kind::Nothing);
        QCOMPARE(screen().summaryText(), QString());
        m_world->center.post(checkInDidSave);
        QCoreApplication::processEvents();
        QCOMPARE(loads(), 0);
    }

    void withoutAStoreThereIsNothing()
    {
        HistoryScreen storeless(nullptr, m_world->facilities, m_world->pasteboard,
                                m_world->renderCard);
        storeless.appear();
        QCOMPARE(storeless.kind(), Kind::Nothing);
        QCOMPARE(storeless.summaryText(), QString());
        QCOMPARE(storeless.errorText(), QString());
    }

    void itListsTheVisits()
    {
        screen().appear();
        QCOMPARE(screen().kind(), Kind::List);
        QCOMPARE(titles(), (QStringList{u"TODAY"_s, u"Blue Door"_s, u"YESTERDAY"_s, u"Red Door"_s,
                                        u"MON, NOV 2"_s, u"Blue Door"_s}));
        QCOMPARE(screen().summaryText(), u"2 visits · 2 cafés this week"_s);
    }

    void eachShowingLoadsAgain()
    {
        screen().appear();
        screen().appear();
        QCOMPARE(loads(), 2);
    }

    void anEmptyHistorySaysSo()
    {
        m_world->repository.visits.clear();
        screen().appear();
        QCOMPARE(screen().kind(), Kind::Empty);
        QCOMPARE(screen().summaryText(), u"0 visits · 0 cafés this week"_s);
    }

    void aFailedLoadSaysWhyAboveNoRows()
    {
        screen().appear();
        m_world->repository.failing = {u"allCheckIns"_s};
        m_world->repository.failure = u"Disk full."_s;
        screen().appear();
        QCOMPARE(screen().kind(), Kind::Failed);
        QCOMPARE(screen().errorText(), u"Network error: Disk full."_s);
        QCOMPARE(screen().summaryText(), u"0 visits · 0 cafés this week"_s);
        QCOMPARE(titles(), QStringList());
    }

    void aLoadWaitsWithTheRowsOfTheLast()
    {
        screen().appear();
        QList<Kind> kinds;
        QList<qsizetype> counts;
        connect(&screen(), &HistoryScreen::changed, this, [&] {
            kinds.append(screen().kind());
            counts.append(titles().size());
        });
        screen().appear();
        QCOMPARE(kinds, (QList<Kind>{Kind::Waiting, Kind::List}));
        QCOMPARE(counts, (QList<qsizetype>{6, 6}));
    }

    void aSavedCheckInComesOnTop()
    {
        screen().appear();
        const QSignalSpy removals(screen().rows(), &QAbstractItemModel::rowsRemoved);
        m_world->repository.visits.push_back(visit(u"2026-11-21T11:00:00Z"_s, cafe(u"New Door"_s)));
        m_world->center.post(checkInDidSave);
        QCoreApplication::processEvents();
        QCOMPARE(titles().mid(0, 3), (QStringList{u"TODAY"_s, u"New Door"_s, u"Blue Door"_s}));
        QCOMPARE(screen().summaryText(), u"3 visits · 3 cafés this week"_s);
        QCOMPARE(removals.count(), 0);
    }

    void aVisitOpensAndCloses()
    {
        screen().appear();
        const QStringList before = titles();
        const QSignalSpy changes(&screen(), &HistoryScreen::selectedChanged);
        screen().openVisit(3);
        QVERIFY(screen().isVisitOpen());
        QCOMPARE(screen().selected(), m_world->repository.visits[1]);
        screen().closeVisit();
        QVERIFY(!screen().isVisitOpen());
        screen().closeVisit();
        QCOMPARE(changes.count(), 2);
        QCOMPARE(titles(), before);
    }

    void aClosedVisitIsLetGoOfOnceItsViewHasGone()
    {
        screen().appear();
        screen().openVisit(1);
        const QPointer<VisitDetail> closed(screen().openVisit());
        QCOMPARE(screen().openVisits(), (QVariantList{QVariant::fromValue(closed.get())}));
        screen().closeVisit();
        QCOMPARE(screen().openVisits(), QVariantList());
        QVERIFY(closed);
        QCoreApplication::sendPostedEvents(closed, QEvent::DeferredDelete);
        QVERIFY(!closed);
    }

    void anotherVisitTakesThePlaceOfTheOpenOne()
    {
        screen().appear();
        screen().openVisit(1);
        const QVariantList before = screen().openVisits();
        screen().openVisit(3);
        QCOMPARE(screen().openVisit()->card().title, u"Red Door"_s);
        QVERIFY(screen().openVisits() != before);
        screen().openVisit(3);
        QCOMPARE(screen().openVisits().size(), 1);
    }

    void anOpenVisitIsLoadedAtOnce()
    {
        m_world->savePassword(u"secret"_s, u"Blue"_s);
        m_world->repository.visits.back()->cafe()->setLastKnownSSID(u"Blue"_s);
        screen().appear();
        screen().openVisit(1);
        HistoryWorld::finishLoading();
        QVERIFY(screen().openVisit()->hasWifiQR());
    }

    void headersAndRowsThatAreNotThereOpenNothing()
    {
        screen().appear();
        for (const int row : {-1, 0, 2, 6}) {
            screen().openVisit(row);
            QVERIFY(!screen().isVisitOpen());
        }
    }

    void anOpenVisitStaysOverALoad()
    {
        screen().appear();
        screen().openVisit(5);
        m_world->repository.visits.clear();
        screen().appear();
        QVERIFY(screen().isVisitOpen());
        QCOMPARE(screen().selected()->date(), instant(u"2026-11-02T09:00:00Z"_s));
    }

    void theRatingsAreNamedInOrder()
    {
        QCOMPARE(screen().ratingLabels(),
                 (QStringList{u"Wifi"_s, u"Power"_s, u"Quiet"_s, u"Calls"_s}));
    }

    void aViewBindsItsProperties()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import QtQml\nimport Quorvel.History\n"
                          "QtObject { required property HistoryScreen screen\n"
                          "property string text: screen.summaryText + screen.ratingLabels[3]\n"
                          "property bool lists: screen.kind === HistoryScreen.List\n"
                          "property int score: lists ? screen.rows.data("
                          "screen.rows.index(1, 0), Qt.UserRole + 7)[0] : -1 }",
                          {});
        const std::unique_ptr<QObject> view(
            component.createWithInitialProperties({{u"screen"_s, QVariant::fromValue(&screen())}}));
        QVERIFY2(view, qPrintable(component.errorString()));
        QVERIFY(!view->property("lists").toBool());
        m_world->repository.visits.back()->setRatings({.wifiSpeed = 5});
        screen().appear();
        QVERIFY(view->property("lists").toBool());
        QCOMPARE(view->property("text"), QVariant(u"2 visits · 2 cafés this weekCalls"_s));
        QCOMPARE(view->property("score"), QVariant(5));
    }

private:
    [[nodiscard]] HistoryScreen &screen() { return m_world->screen; }
    [[nodiscard]] qsizetype loads() const
    {
        return m_world->repository.calls.count(u"allCheckIns"_s);
    }
    [[nodiscard]] QStringList titles()
    {
        QStringList result;
        const QAbstractItemModel &rows = *screen().rows();
        for (int row = 0; row < rows.rowCount(); ++row)
            result.append(rows.index(row, 0).data(HistoryListModel::TitleRole).toString());
        return result;
    }

    std::optional<World> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HistoryScreenTest)
#include "HistoryScreenTest.moc"
