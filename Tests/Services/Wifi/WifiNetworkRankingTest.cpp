#include "Services/Wifi/WifiNetworkRanking.h"

#include "Tests/Support/Services/LastWords.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using Networks = QList<WifiNetwork>;
using WifiNetworkRanking::dedupeAndTop;

class WifiNetworkRankingTest final : public QObject
{
    Q_OBJECT

private slots:
    void aNameAppearsOnceWithItsBestStrength()
    {
        const Networks scan{{u"A"_s, -70}, {u"A"_s, -60}, {u"B"_s, -80}};
        QCOMPARE(dedupeAndTop(scan, 3), (Networks{{u"A"_s, -60}, {u"B"_s, -80}}));
    }

    void aWeakerOneThatComesLaterChangesNothing()
    {
        const Networks scan{{u"A"_s, -60}, {u"A"_s, -61}};
        QCOMPARE(dedupeAndTop(scan, 3), (Networks{{u"A"_s, -60}}));
    }

    void equalOnesOfAnEqualNameAreOne()
    {
        const Networks scan{{u"A"_s, -65}, {u"A"_s, -65}};
        QCOMPARE(dedupeAndTop(scan, 3), (Networks{{u"A"_s, -65}}));
    }

    void theStrongestComeFirstAndTheRestIsCut()
    {
        const Networks scan{
            {u"A"_s, -90}, {u"B"_s, -50}, {u"C"_s, -70}, {u"D"_s, -40}, {u"E"_s, -60}};
        QCOMPARE(dedupeAndTop(scan, 3), (Networks{{u"D"_s, -40}, {u"B"_s, -50}, {u"E"_s, -60}}));
    }

    void aNameSeenWeakFirstIsNotCutForIt()
    {
        const Networks scan{
            {u"A"_s, -90}, {u"B"_s, -50}, {u"C"_s, -60}, {u"D"_s, -70}, {u"A"_s, -40}};
        QCOMPARE(dedupeAndTop(scan, 1), (Networks{{u"A"_s, -40}}));
    }

    void equallyStrongOnesKeepTheirOrder()
    {
        const Networks scan{{u"C"_s, -50}, {u"A"_s, -50}, {u"D"_s, -40}, {u"B"_s, -50}};
        QCOMPARE(dedupeAndTop(scan, 4),
                 (Networks{{u"D"_s, -40}, {u"C"_s, -50}, {u"A"_s, -50}, {u"B"_s, -50}}));
    }

    void namesThatDifferInAnythingAreDifferent_data()
    {
        QTest::addColumn<QString>("other");
        QTest::newRow("case") << u"cafe"_s;
        QTest::newRow("a blank behind") << u"Cafe "_s;
        QTest::newRow("a blank before") << u" Cafe"_s;
        QTest::newRow("nothing at all") << QString();
        QTest::newRow("a zero behind") << u"Cafe\0"_s;
    }

    void namesThatDifferInAnythingAreDifferent()
    {
        QFETCH(const QString, other);
        const Networks scan{{u"Cafe"_s, -50}, {other, -60}};
        QCOMPARE(dedupeAndTop(scan, 3), scan);
    }

    void composedAndDecomposedLettersAreDifferent()
    {
        const Networks scan{{u"Caf\u00e9"_s, -50}, {u"Cafe\u0301"_s, -60}};
        QCOMPARE(dedupeAndTop(scan, 3), scan);
    }

    void theLimitBoundsTheList_data()
    {
        QTest::addColumn<qint64>("limit");
        QTest::addColumn<qsizetype>("size");
        QTest::newRow("0") << qint64(0) << qsizetype(0);
        QTest::newRow("1") << qint64(1) << qsizetype(1);
        QTest::newRow("as many as there are") << qint64(2) << qsizetype(2);
        QTest::newRow("more than there are") << qint64(3) << qsizetype(2);
        QTest::newRow("the greatest") << std::numeric_limits<qint64>::max() << qsizetype(2);
    }

    void theLimitBoundsTheList()
    {
        QFETCH(const qint64, limit);
        QFETCH(const qsizetype, size);
        QCOMPARE(dedupeAndTop({{u"A"_s, -50}, {u"B"_s, -60}}, limit).size(), size);
    }

    void nothingRanksToNothing() { QVERIFY(dedupeAndTop({}, 3).isEmpty()); }

    void aNegativeLimitEndsTheProgram()
    {
        const auto words = lastWords([] { static_cast<void>(dedupeAndTop({}, -1)); });
        QVERIFY(words.has_value());
        QCOMPARE(*words, QByteArray("WifiNetworkRanking::dedupeAndTop: the limit -1 is negative"));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiNetworkRankingTest)
#include "WifiNetworkRankingTest.moc"
