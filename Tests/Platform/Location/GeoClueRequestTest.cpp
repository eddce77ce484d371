#include "Platform/Location/GeoClueRequest.h"

#include "Platform/Location/GeoClueLocationManager.h"
#include "Platform/Location/Location.h"
#include "Tests/Platform/Location/ScriptedGeoClue.h"
#include "Tests/Support/Patience.h"

#include <QDBusMetaType>
#include <QTest>
#include <QVariant>

#include <chrono>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

const GeoClueLimits patientLimits{.client = 1min, .property = 1min, .start = 1min, .fix = 1min};

const auto notALocation =
    u"failed: The location service answered with something that is no location."_s;
const auto noAnswer = u"failed: The location service did not answer."_s;

QString described(const Location &location)
{
    return u"located: %1 %2 ±%3 at %4"_s.arg(location.latitude)
        .arg(location.longitude)
        .arg(location.accuracyMeters)
        .arg(location.timestamp.time_since_epoch().count());
}

QVariantMap properties(const QString &name = {}, const QVariant &value = {})
{
    QVariantMap all{{u"Latitude"_s, 10.5},
                    {u"Longitude"_s, 106.5},
                    {u"Accuracy"_s, 25.0},
                    {u"Timestamp"_s, QVariant::fromValue(TimePair{2, 345'678})}};
    if (!name.isEmpty())
        all.insert(name, value);
    if (!name.isEmpty() && !value.isValid())
        all.remove(name);
    return all;
}

} // namespace

class GeoClueRequestTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qDBusRegisterMetaType<TimePair>();
        QVERIFY(QDBusConnection::sessionBus().isConnected());
        QVERIFY(m_daemonBus.isConnected());
    }

    void init()
    {
        m_daemon = std::make_unique<ScriptedGeoClue>(m_daemonBus);
        m_daemon->properties = properties();
    }

    void cleanup() { m_daemon.reset(); }

    void aPositionIsAskedForInThisOrder()
    {
        QCOMPARE(endOf(GeoClueRequest::Goal::Position, patientLimits),
                 u"located: 10.5 106.5 ±25 at 2345"_s);
        QTRY_COMPARE(m_daemon->calls.size(), 7);
        QCOMPARE(
            m_daemon->calls,
            QStringList({u"/org/freedesktop/GeoClue2/Manager CreateClient"_s,
                         u"/client Set org.freedesktop.GeoClue2.Client DesktopId "
                         "com.zantho.quorvel"_s,
                         u"/client Set org.freedesktop.GeoClue2.Client "
                         "RequestedAccuracyLevel 8"_s,
                         u"/client Start"_s,
                         u"/location GetAll org.freedesktop.GeoClue2.Location"_s, u"/client Stop"_s,
                         u"/org/freedesktop/GeoClue2/Manager DeleteClient /client"_s}));
    }

    void aPermissionIsAskedForByStartingAndStopping()
    {
        QCOMPARE(endOf(GeoClueRequest::Goal::Permission, patientLimits), u"granted"_s);
        QTRY_COMPARE(m_daemon->calls.size(), 6);
        QCOMPARE(m_daemon->calls[3], u"/client Start"_s);
        QCOMPARE(m_daemon->calls[4], u"/client Stop"_s);
    }

    void aPositionThatComesAfterTheStartIsReadOnce()
    {
        m_daemon->locationPaths.clear();
        begin(GeoClueRequest::Goal::Position, patientLimits);
        QTRY_VERIFY(m_daemon->calls.contains(u"/client Start"_s));
        m_daemon->emitLocation(u"/"_s);
        m_daemon->emitLocation(m_daemon->location);
        m_daemon->emitLocation(m_daemon->location);
        QTRY_COMPARE(m_end, u"located: 10.5 106.5 ±25 at 2345"_s);
        QTRY_COMPARE(m_daemon->calls.size(), 7);
    }

    void aRequestThatHasEndedDeletesItself()
    {
        const QPointer request = begin(GeoClueRequest::Goal::Position, patientLimits);
        QTRY_VERIFY(!request);
        QVERIFY(!m_end.isEmpty());
    }

    void anErrorOfAnyStepIsTold_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("end");
        const auto failed = u"org.freedesktop.DBus.Error.Failed"_s;
        const auto denied = u"org.freedesktop.DBus.Error.AccessDenied"_s;
        for (const auto &method : {u"CreateClient"_s, u"Set"_s, u"Start"_s, u"GetAll"_s})
            QTest::addRow("%s", qPrintable(method))
                << method << failed << u"out"_s << u"failed: out"_s;
        QTest::newRow("without a text")
            << u"Start"_s << failed << QString() << u"failed: "_s + failed;
        QTest::newRow("denied") << u"Start"_s << denied << u"Geolocation disabled for UID 0"_s
                                << u"refused 2: Geolocation disabled for UID 0"_s;
        QTest::newRow("disallowed")
            << u"Start"_s << denied << u"'x' disallowed by configuration for UID 0"_s
            << u"refused 1: 'x' disallowed by configuration for UID 0"_s;
        QTest::newRow("denied by the bus")
            << u"CreateClient"_s << denied << u"policy"_s << u"failed: policy"_s;
    }
    void anErrorOfAnyStepIsTold()
    {
        QFETCH(const QString, method);
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        m_daemon->errors.insert(method, {name, text});
        QTEST(endOf(GeoClueRequest::Goal::Position, patientLimits), "end");
    }

    void everyStepHasItsLimit_data()
    {
        QTest::addColumn<QString>("method");
        for (const auto &method : {u"CreateClient"_s, u"Set"_s, u"Start"_s, u"GetAll"_s})
            QTest::addRow("%s", qPrintable(method)) << method;
    }
    void everyStepHasItsLimit()
    {
        QFETCH(const QString, method);
        m_daemon->silent.append(method);
        GeoClueLimits limits = patientLimits;
        (method == u"CreateClient"_s ? limits.client
         : method == u"Start"_s      ? limits.start
                                     : limits.property) = 100ms;
        QCOMPARE(endOf(GeoClueRequest::Goal::Position, limits), noAnswer);
    }

    void aClientThatComesTooLateIsDeleted()
    {
        m_daemon->silent.append(u"CreateClient"_s);
        GeoClueLimits limits = patientLimits;
        limits.client = 100ms;
        QCOMPARE(endOf(GeoClueRequest::Goal::Position, limits), noAnswer);
        QCOMPARE(m_daemon->calls.size(), 1);
        m_daemon->answerLate();
        QTRY_COMPARE(m_daemon->calls.last(),
                     u"/org/freedesktop/GeoClue2/Manager DeleteClient /client"_s);
    }

    void aRequestDestroyedInMidCallLeavesNothingBehind()
    {
        m_daemon->locationPaths.clear();
        const auto *request = begin(GeoClueRequest::Goal::Position, patientLimits);
        QTRY_VERIFY(m_daemon->calls.contains(u"/client Start"_s));
        delete request;
        QTRY_COMPARE(m_daemon->calls.last(),
                     u"/org/freedesktop/GeoClue2/Manager DeleteClient /client"_s);
        QVERIFY(m_daemon->calls.contains(u"/client Stop"_s));
        QVERIFY(m_end.isEmpty());
    }

    void aFixThatNeverComesHasItsLimit()
    {
        m_daemon->locationPaths.clear();
        GeoClueLimits limits = patientLimits;
        limits.fix = 100ms;
        QCOMPARE(endOf(GeoClueRequest::Goal::Position, limits),
                 u"failed: The location could not be determined in time."_s);
        QTRY_COMPARE(m_daemon->calls.last(),
                     u"/org/freedesktop/GeoClue2/Manager DeleteClient /client"_s);
    }

    void theLimitsAreTheseUnlessTold()
    {
        const GeoClueLimits limits;
        QCOMPARE(limits.client, 6s);
        QCOMPARE(limits.property, 5s);
        QCOMPARE(limits.start, 5s);
        QCOMPARE(limits.fix, 20s);
    }

    void aClientThatIsNoObjectFails_data()
    {
        QTest::addColumn<QVariantList>("answer");
        QTest::newRow("nothing") << QVariantList();
        QTest::newRow("text") << QVariantList{u"/client"_s};
        QTest::newRow("number") << QVariantList{7};
    }
    void aClientThatIsNoObjectFails()
    {
        QFETCH(const QVariantList, answer);
        m_daemon->answers.insert(u"CreateClient"_s, answer);
        QCOMPARE(endOf(GeoClueRequest::Goal::Position, patientLimits), notALocation);
    }

    void aLocationIsReadWithCare_data()
    {
        QTest::addColumn<QVariantMap>("answer");
        QTest::addColumn<QString>("end");
        const auto good = u"located: 10.5 106.5 ±25 at "_s;
        const auto row = [&](const char *name, const QString &key, const QVariant &value,
                             const QString &end) {
            QTest::newRow(name) << properties(key, value) << end;
        };
        QTest::newRow("empty") << QVariantMap() << notALocation;
        row("no latitude", u"Latitude"_s, {}, notALocation);
        row("no longitude", u"Longitude"_s, {}, notALocation);
        row("no accuracy", u"Accuracy"_s, {}, notALocation);
        row("text", u"Latitude"_s, u"10.5"_s, notALocation);
        row("whole number", u"Latitude"_s, 10, notALocation);
        row("not a number", u"Longitude"_s, std::nan(""), notALocation);
        row("infinite", u"Longitude"_s, HUGE_VAL, notALocation);
        row("negative accuracy", u"Accuracy"_s, -0.1, notALocation);
        row("infinite accuracy", u"Accuracy"_s, HUGE_VAL, notALocation);
        row("exact", u"Accuracy"_s, 0.0, u"located: 10.5 106.5 ±0 at 2345"_s);
        row("at the pole", u"Latitude"_s, -90.0, u"located: -90 106.5 ±25 at 2345"_s);
        row("beyond the pole", u"Latitude"_s, -90.001, notALocation);
        row("at the date line", u"Longitude"_s, 180.0, u"located: 10.5 180 ±25 at 2345"_s);
        row("beyond the date line", u"Longitude"_s, 180.001, notALocation);
        row("no timestamp", u"Timestamp"_s, {}, good + u"0"_s);
        row("timestamp of text", u"Timestamp"_s, u"now"_s, good + u"0"_s);
        row("timestamp of another shape", u"Timestamp"_s,
            QVariant::fromValue(QDBusObjectPath(u"/"_s)), good + u"0"_s);
        row("last second", u"Timestamp"_s, time(253'402'300'799, 0), good + u"253402300799000"_s);
        row("a second too late", u"Timestamp"_s, time(253'402'300'800, 0), good + u"0"_s);
        row("far too late", u"Timestamp"_s, time(1, ~quint64(0)), good + u"0"_s);
    }
    void aLocationIsReadWithCare()
    {
        QFETCH(const QVariantMap, answer);
        m_daemon->properties = answer;
        QTEST(endOf(GeoClueRequest::Goal::Position, patientLimits), "end");
    }

    void anAnswerThatIsNoListOfPropertiesFails()
    {
        m_daemon->answers.insert(u"GetAll"_s, {7});
        QCOMPARE(endOf(GeoClueRequest::Goal::Position, patientLimits), notALocation);
    }

    void aDaemonThatIsNotThereFails()
    {
        m_daemon.reset();
        const auto end = endOf(GeoClueRequest::Goal::Position, patientLimits);
        QVERIFY2(end.startsWith(u"failed: "_s) && end.contains(u"GeoClue2"_s), qPrintable(end));
    }

    void aBusThatIsNotThereFailsLaterAndRefusesNothing()
    {
        GeoClueLocationManager manager(QDBusConnection(u"nowhere"_s));
        QStringList events;
        connect(&manager, &LocationManager::authorizationChanged, &manager,
                [&] { events.append(QString::number(int(manager.authorizationStatus()))); });
        connect(&manager, &LocationManager::failed, &manager,
                [&](const QString &description) { events.append(description); });
        manager.requestWhenInUseAuthorization();
        QVERIFY(events.isEmpty());
        QTRY_COMPARE(events, QStringList(u"3"_s));
        manager.requestLocation();
        QCOMPARE(events.size(), 1);
        QTRY_COMPARE(events.size(), 2);
        QCOMPARE(events.last(), u"There is no system bus to ask for the location."_s);
    }

private:
    static QVariant time(quint64 seconds, quint64 microseconds)
    {
        return QVariant::fromValue(TimePair{seconds, microseconds});
    }

    GeoClueRequest *begin(GeoClueRequest::Goal goal, const GeoClueLimits &limits)
    {
        m_end.clear();
        auto *request = new GeoClueRequest(goal, QDBusConnection::sessionBus(), limits, this);
        const auto note = [this](const QString &end) { m_end += end; };
        connect(request, &GeoClueRequest::granted, this, [note] { note(u"granted"_s); });
        connect(request, &GeoClueRequest::located, this,
                [note](const Location &location) { note(described(location)); });
        connect(request, &GeoClueRequest::refused, this,
                [note](AuthorizationStatus status, const QString &text) {
                    note(u"refused %1: %2"_s.arg(int(status)).arg(text));
                });
        connect(request, &GeoClueRequest::failed, this,
                [note](const QString &text) { note(u"failed: "_s + text); });
        return request;
    }

    QString endOf(GeoClueRequest::Goal goal, const GeoClueLimits &limits)
    {
        const QPointer request = begin(goal, limits);
        if (!m_end.isEmpty())
            return u"ended at once"_s;
        static_cast<void>(comes([&] { return !request; }));
        return m_end;
    }

    QDBusConnection m_daemonBus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"daemon"_s);
    std::unique_ptr<ScriptedGeoClue> m_daemon;
    QString m_end;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::GeoClueRequestTest)
#include "GeoClueRequestTest.moc"
