#include "Features/CheckIn/LocatedTexts.h"

#include "Core/Support/AppError.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Support/SilentError.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using SaveState = CheckInViewModel::SaveState;
using LocatedTexts::CheckInButton;

LocatedSnapshot at(double distanceMeters)
{
    return {.selectedCafe =
                PlaceCandidate{.name = u"Blue <b>Door</b>"_s, .distanceMeters = distanceMeters}};
}

LocatedSnapshot in(double temperature, double apparent)
{
    return {.weather =
                WeatherSnapshot{.temperatureC = temperature, .apparentTemperatureC = apparent}};
}

const LocatedSnapshot nowhere;
const SaveState loaded = SaveState::loaded(CheckInViewModel::Saved());
const SaveState failed = SaveState::error(AppError::network(u"Disk full."_s));

} // namespace

class LocatedTextsTest final : public QObject
{
    Q_OBJECT

private slots:
    void aCafeIsNamedWithItsDistance()
    {
        QCOMPARE(LocatedTexts::title(at(42)), u"Blue <b>Door</b>"_s);
        QCOMPARE(LocatedTexts::subtitle(at(42)), u" · 42 m away"_s);
        QCOMPARE(LocatedTexts::headerAction(at(42)), u"Change"_s);
        QCOMPARE(LocatedTexts::mapCredit(at(42)), u"© OpenStreetMap contributors"_s);
    }

    void withoutACafeItSaysWhatToDo()
    {
        QCOMPARE(LocatedTexts::title(nowhere), u"Couldn't detect café"_s);
        QCOMPARE(LocatedTexts::subtitle(nowhere), u"Check your connection, then retry."_s);
        QCOMPARE(LocatedTexts::headerAction(nowhere), u"Retry"_s);
        QCOMPARE(LocatedTexts::mapCredit(nowhere), QString());
    }

    void distancesAreRoundedToTheNearest_data()
    {
        QTest::addColumn<double>("meters");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << 0.0 << u"0m"_s;
        QTest::newRow("below a half") << 42.49 << u"42m"_s;
        QTest::newRow("a half") << 42.5 << u"43m"_s;
        QTest::newRow("99.9") << 99.9 << u"100m"_s;
        QTest::newRow("no number") << qQNaN() << u"–m"_s;
    }

    void distancesAreRoundedToTheNearest()
    {
        QFETCH(const double, meters);
        QFETCH(const QString, text);
        QCOMPARE(LocatedTexts::distance(*at(meters).selectedCafe), text);
        QCOMPARE(LocatedTexts::subtitle(at(meters)), u" · "_s + text.chopped(1) + u" m away"_s);
    }

    void temperaturesAreRoundedToTheNearest_data()
    {
        QTest::addColumn<double>("celsius");
        QTest::addColumn<QString>("text");
        QTest::newRow("23.4") << 23.4 << u"23°"_s;
        QTest::newRow("23.5") << 23.5 << u"24°"_s;
        QTest::newRow("0") << 0.0 << u"0°"_s;
        QTest::newRow("just below zero") << -0.4 << u"0°"_s;
        QTest::newRow("a half below zero") << -0.5 << u"-1°"_s;
        QTest::newRow("frost") << -12.6 << u"-13°"_s;
    }

    void temperaturesAreRoundedToTheNearest()
    {
        QFETCH(const double, celsius);
        QFETCH(const QString, text);
        QCOMPARE(LocatedTexts::temperature(in(celsius, 50)), text);
        QCOMPARE(LocatedTexts::feels(in(50, celsius)), u"Feels "_s + text);
    }

    void withoutWeatherItSaysSo()
    {
        QCOMPARE(LocatedTexts::temperature(nowhere), u"Weather unavailable"_s);
        QCOMPARE(LocatedTexts::feels(nowhere), QString());
        QCOMPARE(LocatedTexts::weatherCredit(nowhere), QString());
    }

    void theWeatherNamesItsSource()
    {
        QCOMPARE(LocatedTexts::weatherCredit(in(20, 20)), u"Weather by Open-Meteo"_s);
    }

    void aSaveThatFailedSaysWhy()
    {
        QCOMPARE(LocatedTexts::saveError(failed.errorValue()), u"Network error: Disk full."_s);
        const SilentError silent;
        QCOMPARE(LocatedTexts::saveError(&silent), u"Lưu thất bại."_s);
        for (const SaveState &state : {SaveState::idle(), SaveState::loading(), loaded})
            QCOMPARE(LocatedTexts::saveError(state.errorValue()), QString());
    }

    void theNoteSaysWhatIsInTheWay()
    {
        QCOMPARE(LocatedTexts::note(at(1), false), QString());
        QCOMPARE(LocatedTexts::note(at(1), true), u"Already checked in today at this café."_s);
        QCOMPARE(LocatedTexts::note(nowhere, false), u"Connect to load your café first."_s);
        QCOMPARE(LocatedTexts::note(nowhere, true), u"Connect to load your café first."_s);
    }

    void theButtonFollowsTheSave()
    {
        for (const SaveState &state : {SaveState::idle(), failed}) {
            QVERIFY(LocatedTexts::button(at(1), state, false) == checkIn(true));
            QVERIFY(LocatedTexts::button(at(1), state, true) == checkIn(false));
            QVERIFY(LocatedTexts::button(nowhere, state, false) == checkIn(false));
        }
        QVERIFY(LocatedTexts::button(at(1), SaveState::loading(), false) == checkIn(false));
        const CheckInButton done{
            .title = u"Checked in!"_s, .symbol = u"checkmark.circle.fill"_s, .isEnabled = false};
        QVERIFY(LocatedTexts::button(at(1), loaded, true) == done);
    }

private:
    [[nodiscard]] static CheckInButton checkIn(bool isEnabled)
    {
        return {.title = u"Check In"_s, .symbol = u"location.fill"_s, .isEnabled = isEnabled};
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::LocatedTextsTest)
#include "LocatedTextsTest.moc"
