#include "Core/DesignSystem/Ratings/RatingScale.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class RatingScaleTest final : public QObject
{
    Q_OBJECT

private slots:
    static void scoresGoFromOneToFive()
    {
        QCOMPARE(RatingScale::lowest(), 1);
        QCOMPARE(RatingScale::highest(), 5);
    }

    static void raisedStopsAtFive()
    {
        QCOMPARE(RatingScale::raised(1), 2);
        QCOMPARE(RatingScale::raised(4), 5);
        QCOMPARE(RatingScale::raised(5), 5);
        QCOMPARE(RatingScale::raised(9), 5);
    }

    static void loweredStopsAtOne()
    {
        QCOMPARE(RatingScale::lowered(5), 4);
        QCOMPARE(RatingScale::lowered(2), 1);
        QCOMPARE(RatingScale::lowered(1), 1);
        QCOMPARE(RatingScale::lowered(0), 1);
    }

    static void clampedKeepsWhatIsAScore()
    {
        for (int score = 1; score <= 5; ++score)
            QCOMPARE(RatingScale::clamped(score), score);
        QCOMPARE(RatingScale::clamped(0), 1);
        QCOMPARE(RatingScale::clamped(6), 5);
    }

    static void placesUpToTheScoreAreLit()
    {
        for (int score = 0; score <= 6; ++score)
            for (int place = 1; place <= 5; ++place)
                QCOMPARE(RatingScale::isLit(place, score), place <= score);
    }

    static void descriptionNamesTheScoreAndTheHighest()
    {
        QCOMPARE(RatingScale::description(3), u"3 of 5"_s);
        QCOMPARE(RatingScale::description(1), u"1 of 5"_s);
    }
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::RatingScaleTest)
#include "RatingScaleTest.moc"
