#include "_Probes/Log/ProbeTexts.h"

#include "Core/Support/AppError.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Support/SilentError.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class ProbeTextsTest final : public QObject
{
    Q_OBJECT

private slots:
    void eachAuthorizationHasItsName()
    {
        QStringList names;
        for (int status = 0; status < 6; ++status)
            names.append(ProbeTexts::authorization(AuthorizationStatus(status)));
        QCOMPARE(names, QStringList({u"notDetermined"_s, u"restricted"_s, u"denied"_s,
                                     u"authorized ✅"_s, u"unknown"_s, u"unknown"_s}));
        QCOMPARE(ProbeTexts::authorization(AuthorizationStatus(-1)), u"unknown"_s);
    }

    void aPositionIsToldToAMetre()
    {
        QCOMPARE(ProbeTexts::position({10.7769, -106.700904}), u"10.77690, -106.70090"_s);
        QCOMPARE(ProbeTexts::meters(41.5), u"42 m"_s);
    }

    void theVerdictComparesTheNames_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("verdict");
        QTest::newRow("never") << u"(nil)"_s << u"(nil)"_s
                               << u"There is no network name, before or after locating."_s;
        QTest::newRow("same") << u"A"_s << u"A"_s << u"Locating did not change the network name."_s;
        QTest::newRow("revealed") << u"(nil)"_s << u"A"_s
                                  << u"Locating revealed the network name."_s;
        QTest::newRow("gone") << u"A"_s << u"(nil)"_s
                              << u"The network name is gone since the launch."_s;
        QTest::newRow("other") << u"A"_s << u"B"_s
                               << u"The network is another one than at the launch."_s;
    }
    void theVerdictComparesTheNames()
    {
        QFETCH(const QString, before);
        QFETCH(const QString, after);
        QTEST(ProbeTexts::verdict(before, after), "verdict");
    }

    void whatWasFoundIsFourLines()
    {
        const LocatedSnapshot snapshot{
            .selectedCafe = PlaceCandidate{.name = u"Gió Sông"_s},
            .nearbyCandidates = {PlaceCandidate(), PlaceCandidate()},
            .weather = WeatherSnapshot{.temperatureC = 23, .apparentTemperatureC = 25},
            .ssid = u"Gió Sông 5G"_s,
            .hasRememberedPassword = true};
        QCOMPARE(ProbeTexts::located(snapshot),
                 QStringList({u"Gió Sông"_s, u"23° · Feels 25°"_s,
                              u"SSID: Gió Sông 5G  ·  remembered pass: true"_s,
                              u"2 nearby candidate(s)"_s}));
    }

    void aNameDoesNotBreakItsLine()
    {
        const LocatedSnapshot snapshot{.selectedCafe = PlaceCandidate{.name = u"a\nb"_s},
                                       .ssid = u"c\u2028d\re"_s};
        const QStringList lines = ProbeTexts::located(snapshot);
        QCOMPARE(lines[0], u"a b"_s);
        QCOMPARE(lines[2], u"SSID: c d e  ·  remembered pass: false"_s);
    }

    void whatIsMissingIsSaid()
    {
        QCOMPARE(ProbeTexts::located({}),
                 QStringList({u"Couldn't detect café (degraded)"_s, u"Weather unavailable"_s,
                              u"SSID: (none)  ·  remembered pass: false"_s,
                              u"0 nearby candidate(s)"_s}));
    }

    void anErrorWithoutADescriptionIsUnknown()
    {
        const SilentError silent;
        QCOMPARE(ProbeTexts::error(&silent), u"Unknown error"_s);
        const AppError told = AppError::noCafeFound();
        QCOMPARE(ProbeTexts::error(&told), u"No café found nearby."_s);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ProbeTextsTest)
#include "ProbeTextsTest.moc"
