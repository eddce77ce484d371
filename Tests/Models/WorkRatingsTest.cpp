#include "Models/WorkRatings.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class WorkRatingsTest final : public QObject
{
    Q_OBJECT

private slots:
    void aScoreIsFrom1To5()
    {
        QCOMPARE(WorkRatings::lowest, 1);
        QCOMPARE(WorkRatings::highest, 5);
    }

    void eachCriterionReadsItsOwnScoreInThisOrder()
    {
        const WorkRatings ratings{.wifiSpeed = 6, .outlets = 7, .noise = 8, .quietForCalls = 9};
        QList<qint64> scores;
        for (const WorkCriterion &criterion : workCriteria)
            scores.append(ratings.*criterion.score);
        QCOMPARE(scores, (QList<qint64>{6, 7, 8, 9}));
    }

    void eachCriterionHasItsNames_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::newRow("wifiSpeed") << QStringList{u"WiFi speed"_s, u"Fast enough for calls"_s,
                                                  u"WiFi speed"_s, u"Wifi"_s, u"--wifi-speed"_s};
        QTest::newRow("outlets") << QStringList{u"Power outlets"_s, u""_s, u"Power outlets"_s,
                                                u"Power"_s, u"--outlets"_s};
        QTest::newRow("noise") << QStringList{u"Noise level"_s, u"Lower = quieter"_s, u"Quiet"_s,
                                              u"Quiet"_s, u"--noise"_s};
        QTest::newRow("quietForCalls") << QStringList{u"Quiet for calls"_s, u""_s, u"Calls"_s,
                                                      u"Calls"_s, u"--quiet-for-calls"_s};
    }

    void eachCriterionHasItsNames()
    {
        const auto criterion = std::ranges::find_if(workCriteria, [](const auto &candidate) {
            return QByteArray(candidate.key) == QTest::currentDataTag();
        });
        QVERIFY(criterion != workCriteria.end());
        const QStringList names{criterion->title.toString(), criterion->hint.toString(),
                                criterion->cardLabel.toString(), criterion->rowLabel.toString(),
                                criterion->option.toString()};
        QTEST(names, "names");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WorkRatingsTest)
#include "WorkRatingsTest.moc"
