#include "Features/Terminal/Commands/LocateCommand.h"

#include "Core/Support/AppError.h"
#include "Tests/Features/Terminal/TerminalWorld.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QTest>

#include <cerrno>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class LocateCommandTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }

    void whatWasFoundIsPrinted()
    {
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s}), done);
        QCOMPARE(m_world->printed(), u"Near · 42 m away\n"
                                     "23° · Feels 25° · Clear\n"
                                     "No Wi-Fi\n"
                                     "Also near:\n"
                                     "   80m  Far\n"_s);
        QCOMPARE(m_world->noted(), QString());
    }

    void theNetworkIsPrintedWithoutItsPassword()
    {
        m_world->loop.wifi.ssid = u"Cafe 5G"_s;
        m_world->loop.wifi.signal = WifiSignal(-42);
        m_world->loop.keychain.passwords.insert(u"Cafe 5G"_s, u"secret12"_s);
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s}), done);
        QVERIFY(
            m_world->printed().contains(u"Wi-Fi: Cafe 5G · Strong (-42 dBm) · password kept\n"_s));
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s, u"--json"_s}), done);
        QVERIFY(!m_world->printed().contains(u"secret12"_s));
        QCOMPARE(m_world->printedJson()[u"wifi"], (QJsonObject{{u"ssid"_s, u"Cafe 5G"_s},
                                                               {u"hasRememberedPassword"_s, true},
                                                               {u"rssiDBm"_s, -42},
                                                               {u"bars"_s, 4},
                                                               {u"label"_s, u"Strong"_s}}));
    }

    void jsonHasEverything()
    {
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s, u"--json"_s}), done);
        QVERIFY(m_world->terminal.printed.endsWith("}\n"));
        const QJsonObject near{{u"id"_s, u"Near"_s},         {u"name"_s, u"Near"_s},
                               {u"latitude"_s, 42},          {u"longitude"_s, 2},
                               {u"distanceMeters"_s, 42},    {u"category"_s, u"Cafe"_s},
                               {u"address"_s, QJsonValue()}, {u"mapItemIdentifier"_s, u"Near"_s}};
        const auto json = m_world->printedJson();
        QCOMPARE(json.keys(), QStringList({u"nearbyCandidates"_s, u"selectedCafe"_s, u"status"_s,
                                           u"version"_s, u"weather"_s, u"wifi"_s}));
        QCOMPARE(json[u"version"], 1);
        QCOMPARE(json[u"status"], u"located"_s);
        QCOMPARE(json[u"selectedCafe"], near);
        QCOMPARE(json[u"nearbyCandidates"].toArray().size(), 2);
        QCOMPARE(json[u"nearbyCandidates"][0], near);
        QCOMPARE(json[u"weather"], (QJsonObject{{u"temperatureC"_s, 23},
                                                {u"apparentTemperatureC"_s, 25},
                                                {u"weatherCode"_s, 0},
                                                {u"isDay"_s, true},
                                                {u"capturedAt"_s, u"1970-01-01T00:00:00.000Z"_s}}));
        QVERIFY(json[u"wifi"].isNull());
    }

    void aRefusalHasItsStatusAndItsSentence()
    {
        m_world->loop.location.authorize(AuthorizationStatus::Denied);
        QCOMPARE(m_world->run({u"locate"_s}), locationDenied);
        QCOMPARE(m_world->printed(), QString());
        QCOMPARE(m_world->noted(),
                 u"quorvel: Location access denied. Open System Settings to enable.\n"_s);
        m_world->loop.location.authorize(AuthorizationStatus::Denied);
        QCOMPARE(m_world->run({u"locate"_s, u"--json"_s}), locationDenied);
        QCOMPARE(m_world->printedJson()[u"status"], u"locationDenied"_s);
        QVERIFY(m_world->printedJson()[u"selectedCafe"].isNull());
    }

    void withoutACafeTheNetworkIsStillTold()
    {
        m_world->loop.wifi.ssid = u"Cafe 5G"_s;
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed({});
        QCOMPARE(m_world->run({u"locate"_s}), noCafe);
        QCOMPARE(m_world->printed(), u"Couldn't detect café. Check your connection, then retry.\n"
                                     "Wi-Fi: Cafe 5G\n"_s);
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed({});
        QCOMPARE(m_world->run({u"locate"_s, u"--json"_s}), noCafe);
        QCOMPARE(m_world->printedJson()[u"status"], u"noCafe"_s);
        QCOMPARE(m_world->printedJson()[u"wifi"][u"ssid"], u"Cafe 5G"_s);
        QVERIFY(m_world->printedJson()[u"wifi"][u"rssiDBm"].isNull());
        QVERIFY(m_world->printedJson()[u"weather"].isNull());
    }

    void withoutWeatherTheCafeIsStillTold()
    {
        m_world->loop.willLocate();
        m_world->loop.places.calls.willSucceed(LoopWorld::found());
        m_world->loop.weather.calls.willFail(AppError::network(u"down"_s));
        QCOMPARE(m_world->run({u"locate"_s}), done);
        QVERIFY(m_world->printed().contains(u"\nWeather unavailable\n"_s));
    }

    void namesGiveTheTerminalNoOrders()
    {
        m_world->loop.wifi.ssid = u"\u001b[31mred\u009b2J"_s;
        m_world->loop.willLocate();
        auto cafe = LoopWorld::cafe(u"a\u001b]0;title\u0007\nb"_s, 1);
        cafe.address = u"c\rd"_s;
        auto other = LoopWorld::cafe(u"e\u001bc"_s, 2);
        m_world->loop.places.calls.willSucceed({cafe, other});
        m_world->loop.weather.calls.willSucceed(LoopWorld::sun());
        QCOMPARE(m_world->run({u"locate"_s}), done);
        QVERIFY(!m_world->printed().contains(u'\u001b'));
        QVERIFY(!m_world->printed().contains(u'\u009b'));
        QVERIFY(!m_world->printed().contains(u'\r'));
        QVERIFY(m_world->printed().startsWith(u"a\ufffd]0;title\ufffd b · 1 m away\nc d\n"_s));
    }

    void progressIsForWhoeverWatches()
    {
        m_world->terminal.watched = true;
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s}), done);
        QCOMPARE(m_world->noted(), u"\r\u001b[KFinding your café…\r\u001b[K"_s);
        QVERIFY(!m_world->printed().contains(u"Finding"_s));
    }

    void aWorldThatCannotBeHadIsAFailure()
    {
        m_world->loopFailure.emplace(u"The address is wrong."_s);
        QCOMPARE(m_world->run({u"locate"_s}), failure);
        QCOMPARE(m_world->noted(), u"quorvel: The address is wrong.\n"_s);
    }

    void theStoreIsNotNeeded()
    {
        m_world->storeFailure.emplace(u"No store."_s);
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s}), done);
    }

    void outputThatCannotBeWrittenIsAFailure()
    {
        m_world->terminal.failure = ENOSPC;
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s}), failure);
        QCOMPARE(m_world->noted(),
                 u"quorvel: The output could not be written: No space left on device.\n"_s);
    }

    void aReaderThatHasReadEnoughIsNotComplainedOf()
    {
        m_world->terminal.failure = EPIPE;
        m_world->loop.willFindAll();
        QCOMPARE(m_world->run({u"locate"_s}), failure);
        QCOMPARE(m_world->noted(), QString());
    }

    void argumentsAreReadBeforeAnythingIsAsked()
    {
        QCOMPARE(m_world->run({u"locate"_s, u"--now\u001b"_s}), usage);
        QCOMPARE(m_world->noted(), u"quorvel: unknown option “--now\ufffd”\n"
                                   "Try “quorvel locate --help”.\n"_s);
        QVERIFY(m_world->loop.location.calls.isEmpty());
    }

    void itHelps()
    {
        QCOMPARE(m_world->run({u"locate"_s, u"--help"_s}), done);
        QVERIFY(m_world->printed().startsWith(u"Usage: quorvel locate [option...]\n"_s));
        for (const QString &line : m_world->printed().split(u'\n'))
            QVERIFY2(line.size() <= 80, qPrintable(line));
        QVERIFY(m_world->loop.location.calls.isEmpty());
    }

private:
    std::optional<TerminalWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::LocateCommandTest)
#include "LocateCommandTest.moc"
