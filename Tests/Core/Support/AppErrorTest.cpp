#include "Core/Support/AppError.h"

#include <QTest>

using namespace quorvel;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(quorvel::AppError::Case)

namespace {

AppError make(AppError::Case kind, const QString &message)
{
    switch (kind) {
    case AppError::Case::LocationFailed:
        return AppError::locationFailed(message);
    case AppError::Case::Network:
        return AppError::network(message);
    case AppError::Case::Decoding:
        return AppError::decoding(message);
    case AppError::Case::LocationDenied:
        return AppError::locationDenied();
    case AppError::Case::NoCafeFound:
        return AppError::noCafeFound();
    }
    Q_UNREACHABLE();
}

} // namespace

class AppErrorTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyCaseHasItsSentence_data()
    {
        QTest::addColumn<AppError::Case>("kind");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("sentence");

        QTest::newRow("locationFailed")
            << AppError::Case::LocationFailed << u"No fix."_s << u"Location error: No fix."_s;
        QTest::newRow("network") << AppError::Case::Network << u"No WiFi interface available"_s
                                 << u"Network error: No WiFi interface available"_s;
        QTest::newRow("decoding") << AppError::Case::Decoding << u"No value for “current”."_s
                                  << u"Data error: No value for “current”."_s;
        QTest::newRow("locationDenied")
            << AppError::Case::LocationDenied << QString()
            << u"Location access denied. Open System Settings to enable."_s;
        QTest::newRow("noCafeFound")
            << AppError::Case::NoCafeFound << QString() << u"No caf\u00e9 found nearby."_s;

        QTest::newRow("locationFailed, empty")
            << AppError::Case::LocationFailed << QString() << u"Location error: "_s;
        QTest::newRow("network, empty")
            << AppError::Case::Network << QString() << u"Network error: "_s;
        QTest::newRow("decoding, empty")
            << AppError::Case::Decoding << QString() << u"Data error: "_s;
        QTest::newRow("blanks and placeholders are kept")
            << AppError::Case::Network << u"  100 %1\n"_s << u"Network error:   100 %1\n"_s;
    }

    void everyCaseHasItsSentence()
    {
        QFETCH(const AppError::Case, kind);
        QFETCH(const QString, message);
        QFETCH(const QString, sentence);

        const AppError error = make(kind, message);
        QCOMPARE(error.kind(), kind);
        QCOMPARE(error.message(), message);
        QCOMPARE(error.errorDescription(), sentence);
        QCOMPARE(QString::fromUtf8(error.what()), sentence);
    }

    void casesStandInTheirOrder()
    {
        QCOMPARE(int(AppError::Case::LocationFailed), 0);
        QCOMPARE(int(AppError::Case::Network), 1);
        QCOMPARE(int(AppError::Case::Decoding), 2);
        QCOMPARE(int(AppError::Case::LocationDenied), 3);
        QCOMPARE(int(AppError::Case::NoCafeFound), 4);
    }

    void errorsAreEqualOnlyWithTheSameCaseAndMessage()
    {
        const QList<AppError> errors{
            AppError::locationFailed(u"a"_s), AppError::locationFailed(u"b"_s),
            AppError::network(u"a"_s),        AppError::network(u"b"_s),
            AppError::decoding(u"a"_s),       AppError::decoding(u"b"_s),
            AppError::network(QString()),     AppError::locationDenied(),
            AppError::noCafeFound()};
        for (qsizetype i = 0; i < errors.size(); ++i)
            for (qsizetype j = 0; j < errors.size(); ++j)
                QCOMPARE(errors[i] == make(errors[j].kind(), errors[j].message()), i == j);
    }

    void aThrownErrorIsCaughtAsWhatItIs()
    {
        try {
            throw AppError::network(u"lost"_s);
        } catch (const LocalizedError &error) {
            QCOMPARE(error.errorDescription(), u"Network error: lost"_s);
        }
    }

    void theSavedNotificationHasItsName()
    {
        QCOMPARE(QString(checkInDidSave), u"com.zantho.quorvel.checkInDidSave"_s);
    }
};

QTEST_GUILESS_MAIN(AppErrorTest)
#include "AppErrorTest.moc"
