#include "Platform/PointsOfInterest/PointsOfInterestError.h"

#include <QTest>

Q_DECLARE_METATYPE(quorvel::PointsOfInterestError::Case)

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class PointsOfInterestErrorTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyCaseHasItsSentence_data()
    {
        using Case = PointsOfInterestError::Case;
        QTest::addColumn<PointsOfInterestError::Case>("kind");
        QTest::addColumn<QString>("detail");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("unreachable") << Case::Unreachable << u"Connection refused"_s
                                     << u"The map service cannot be reached: Connection refused"_s;
        QTest::newRow("busy") << Case::Busy << QString()
                              << u"The map service is busy. Try again in a while."_s;
        QTest::newRow("refused") << Case::Refused << u"406"_s
                                 << u"The map service returned HTTP 406."_s;
        QTest::newRow("unreadable") << Case::Unreadable << QString()
                                    << u"The map service sent an answer that makes no sense."_s;
        QTest::newRow("cancelled")
            << Case::Cancelled << QString() << u"The search was cancelled."_s;
    }

    void everyCaseHasItsSentence()
    {
        QFETCH(const PointsOfInterestError::Case, kind);
        QFETCH(const QString, detail);
        const PointsOfInterestError error(kind, detail);
        QCOMPARE(error.kind(), kind);
        QTEST(error.errorDescription(), "sentence");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::PointsOfInterestErrorTest)
#include "PointsOfInterestErrorTest.moc"
