#include "Features/History/List/HistoryListModel.h"

#include "Models/WeatherSnapshot.h"
#include "Tests/Features/History/Visits.h"

#include <QAbstractItemModelTester>
#include <QModelIndex>
#include <QTest>
#include <QTimeZone>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using Model = HistoryListModel;
using Sections = std::vector<HistorySection>;

} // namespace

class HistoryListModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_model.emplace();
        m_tester.emplace(&*m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_log.clear();
        const auto noting = [this](const QString &what) {
            return [this, what](const QModelIndex &, int first, int last) {
                m_log.append(u"%1 %2-%3"_s.arg(what).arg(first).arg(last));
            };
        };
        connect(&*m_model, &Model::rowsInserted, this, noting(u"insert"_s));
        connect(&*m_model, &Model::rowsRemoved, this, noting(u"remove"_s));
        connect(&*m_model, &Model::modelReset, this, [this] { m_log.append(u"reset"_s); });
    }
    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
    }

    void headersStandAboveTheirVisits()
    {
        show({{.title = u"TODAY"_s, .checkIns = {m_second, m_first}},
              {.title = u"MON, MAR 3"_s, .checkIns = {m_old}}});
        QCOMPARE(titles(), (QStringList{u"# TODAY"_s, u"Second"_s, u"First"_s, u"# MON, MAR 3"_s,
                                        u"Unknown café"_s}));
    }

    void aVisitIsOnItsRowAlone()
    {
        show({{.title = u"TODAY"_s, .checkIns = {m_second, m_first}}});
        QCOMPARE(m_model->visit(0), nullptr);
        QCOMPARE(m_model->visit(1), m_second);
        QCOMPARE(m_model->visit(2), m_first);
        QCOMPARE(m_model->visit(3), nullptr);
        QCOMPARE(m_model->visit(-1), nullptr);
    }

    void whoGoesThroughTheVisitsPassesOverHeaders()
    {
        show({{.title = u"TODAY"_s, .checkIns = {m_second, m_first}},
              {.title = u"MON, MAR 3"_s, .checkIns = {m_old}}});
        const QList<int> below{1, 1, 2, 4, 4, -1, -1};
        const QList<int> above{-1, -1, -1, 1, 2, 2, 4};
        for (int row = -1; row <= 5; ++row) {
            QCOMPARE(m_model->visitBelow(row), below[row + 1]);
            QCOMPARE(m_model->visitAbove(row), above[row + 1]);
        }
        QCOMPARE(m_model->visitBelow(-7), 1);
        QCOMPARE(m_model->visitAbove(7), 4);
    }

    void aRowShowsItsVisit()
    {
        const auto there = visit(u"2025-03-11T09:00:00Z"_s, cafe(u"Blue Door"_s));
        there->setNote(u"<i>quiet</i>"_s);
        there->setRatings({.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 1});
        there->setWeather(WeatherSnapshot{.temperatureC = 21.5, .weatherCode = 61, .isDay = true});
        show({{.title = u"TODAY"_s, .checkIns = {there}}});
        QCOMPARE(data(1, "title"), QVariant(u"Blue Door"_s));
        QCOMPARE(data(1, "moment"), QVariant(u"16:00 · 22°"_s));
        QCOMPARE(data(1, "note"), QVariant(u"<i>quiet</i>"_s));
        QCOMPARE(data(1, "hasWeather"), QVariant(true));
        QCOMPARE(data(1, "weatherCode"), QVariant(61));
        QCOMPARE(data(1, "isDay"), QVariant(true));
        QCOMPARE(data(1, "scores").value<QList<int>>(), (QList<int>{5, 4, 2, 1}));
    }

    void aRowWithoutWeatherSaysSo()
    {
        show({{.title = u"TODAY"_s, .checkIns = {m_first}}});
        QCOMPARE(data(1, "moment"), QVariant(u"16:00"_s));
        QCOMPARE(data(1, "hasWeather"), QVariant(false));
        QCOMPARE(data(1, "weatherCode"), QVariant(0));
        QCOMPARE(data(1, "isDay"), QVariant(false));
    }

    void whatIsNotThereHasNoData()
    {
        show({{.title = u"TODAY"_s, .checkIns = {m_first}}});
        QVERIFY(!data(0, "moment").isValid());
        QVERIFY(!data(2, "title").isValid());
        QVERIFY(!m_model->data(m_model->index(1), Qt::DecorationRole).isValid());
    }

    void aListBecomesAnotherInPlace_data()
    {
        const Sections before{{.title = u"TODAY"_s, .checkIns = {m_first}},
                              {.title = u"MON, MAR 3"_s, .checkIns = {m_old}}};
        QTest::addColumn<Sections>("after");
        QTest::addColumn<QStringList>("log");
        QTest::newRow("the same") << before << QStringList();
        QTest::newRow("a visit on top")
            << Sections{{.title = u"TODAY"_s, .checkIns = {m_second, m_first}}, before[1]}
            << QStringList{u"insert 1-1"_s};
        QTest::newRow("a day on top") << Sections{{.title = u"TODAY"_s, .checkIns = {m_second}},
                                                  {.title = u"YESTERDAY"_s, .checkIns = {m_first}},
                                                  before[1]}
                                      << QStringList{u"insert 1-2"_s};
        QTest::newRow("a day at the end")
            << Sections{before[0], before[1], {.title = u"SUN, MAR 2"_s, .checkIns = {m_second}}}
            << QStringList{u"insert 4-5"_s};
        QTest::newRow("a new day's title")
            << Sections{{.title = u"YESTERDAY"_s, .checkIns = {m_first}}, before[1]}
            << QStringList{u"remove 0-0"_s, u"insert 0-0"_s};
        QTest::newRow("less") << Sections{before[0]} << QStringList{u"remove 2-3"_s};
        QTest::newRow("nothing") << Sections() << QStringList{u"remove 0-3"_s};
        QTest::newRow("another") << Sections{{.title = u"SUN, MAR 2"_s, .checkIns = {m_second}}}
                                 << QStringList{u"remove 0-3"_s, u"insert 0-1"_s};
        QTest::newRow("twice the same")
            << Sections{before[0], before[0], before[1]} << QStringList{u"insert 2-3"_s};
    }

    void aListBecomesAnotherInPlace()
    {
        QFETCH(const Sections, after);
        show({{.title = u"TODAY"_s, .checkIns = {m_first}},
              {.title = u"MON, MAR 3"_s, .checkIns = {m_old}}});
        m_log.clear();
        show(after);
        QTEST(m_log, "log");
        Model fresh;
        fresh.setSections(after, m_calendar, QLocale::c());
        QCOMPARE(m_model->rowCount(), fresh.rowCount());
        for (int row = 0; row < fresh.rowCount(); ++row)
            QCOMPARE(data(row, "title"), fresh.index(row).data(Model::TitleRole));
    }

    void rowsThatStayAreReadAgain()
    {
        show({{.title = u"TODAY"_s, .checkIns = {m_first}}});
        int changes = 0;
        connect(&*m_model, &Model::dataChanged, this, [&](const auto &first, const auto &last) {
            ++changes;
            QCOMPARE(first.row(), 0);
            QCOMPARE(last.row(), 1);
            QCOMPARE(data(1, "moment"), QVariant(u"09:00"_s));
        });
        m_model->setSections({{.title = u"TODAY"_s, .checkIns = {m_first}}},
                             Calendar{QTimeZone::utc()}, QLocale::c());
        QCOMPARE(changes, 1);
    }

private:
    void show(const Sections &sections)
    {
        m_model->setSections(sections, m_calendar, QLocale::c());
    }
    [[nodiscard]] QVariant data(int row, const QByteArray &role) const
    {
        return m_model->data(m_model->index(row), m_model->roleNames().key(role));
    }
    [[nodiscard]] QStringList titles() const
    {
        QStringList result;
        for (int row = 0; row < m_model->rowCount(); ++row)
            result.append((data(row, "isHeader").toBool() ? u"# "_s : QString()) +
                          data(row, "title").toString());
        return result;
    }

    const Calendar m_calendar{QTimeZone("Asia/Ho_Chi_Minh")};
    const std::shared_ptr<CheckIn> m_first = visit(u"2025-03-11T09:00:00Z"_s, cafe(u"First"_s));
    const std::shared_ptr<CheckIn> m_second = visit(u"2025-03-11T10:00:00Z"_s, cafe(u"Second"_s));
    const std::shared_ptr<CheckIn> m_old = visit(u"2025-03-03T09:00:00Z"_s);
    std::optional<Model> m_model;
    std::optional<QAbstractItemModelTester> m_tester;
    QStringList m_log;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HistoryListModelTest)
#include "HistoryListModelTest.moc"
