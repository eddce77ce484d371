#include "Core/Support/Texts/RoundedNumber.h"

#include <QTest>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class RoundedNumberTest final : public QObject
{
    Q_OBJECT

private slots:
    void halvesGoAwayFromZero_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 22.0 << u"22"_s;
        QTest::newRow("below a half") << 21.49 << u"21"_s;
        QTest::newRow("a half") << 21.5 << u"22"_s;
        QTest::newRow("an even half") << 22.5 << u"23"_s;
        QTest::newRow("just below zero") << -0.4 << u"0"_s;
        QTest::newRow("a half below zero") << -0.5 << u"-1"_s;
        QTest::newRow("thousands") << 12345.0 << u"12345"_s;
        QTest::newRow("no number") << qQNaN() << u"–"_s;
        QTest::newRow("no end") << qInf() << u"–"_s;
    }

    void halvesGoAwayFromZero()
    {
        QFETCH(const double, number);
        QTEST(roundedNumber(number), "text");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::RoundedNumberTest)
#include "RoundedNumberTest.moc"
