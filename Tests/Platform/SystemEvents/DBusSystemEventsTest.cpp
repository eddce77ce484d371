#include "Platform/SystemEvents/DBusSystemEvents.h"

#include "Tests/Platform/Wifi/NetworkManager/NetworkManagerMock.h"
#include "Tests/Support/Patience.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QTest>
#include <QVariant>

#include <memory>

namespace quorvel::tests {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

/// Beside the district's network service.
class DBusSystemEventsTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_network.start(); }
    void init()
    {
        m_network.call(u"Clear"_s);
        m_told.clear();
        m_events = std::make_unique<DBusSystemEvents>(QDBusConnection::sessionBus());
        connect(m_events.get(), &SystemEvents::cameBack, this,
                [this](Returning what) { m_told.append(what); });
        m_events->follow();
    }
    void cleanup() { m_events.reset(); }

    void whatTheNetworkManagerSaysIsUnderstood_data()
    {
        using Told = QList<Returning>;
        QTest::addColumn<QVariantMap>("news");
        QTest::addColumn<Told>("told");
        const auto row = [](const char *name, const QVariantMap &news, const Told &told) {
            QTest::newRow(name) << news << told;
        };
        row("asleep", {{u"State"_s, 10U}}, {});
        row("disconnected", {{u"State"_s, 20U}}, {});
        row("connecting", {{u"State"_s, 40U}}, {});
        row("this site only", {{u"State"_s, 60U}}, {});
        row("everywhere", {{u"State"_s, 70U}}, {Returning::Network});
        row("nowhere", {{u"Connectivity"_s, 1U}}, {});
        row("a portal", {{u"Connectivity"_s, 2U}}, {});
        row("limited", {{u"Connectivity"_s, 3U}}, {});
        row("full", {{u"Connectivity"_s, 4U}}, {Returning::Network});
        row("both", {{u"State"_s, 70U}, {u"Connectivity"_s, 4U}}, {Returning::Network});
        row("radio off", {{u"WirelessEnabled"_s, false}}, {});
        row("radio on", {{u"WirelessEnabled"_s, true}}, {Returning::Radio});
        row("switch off", {{u"WirelessHardwareEnabled"_s, false}}, {});
        row("switch on", {{u"WirelessHardwareEnabled"_s, true}}, {Returning::Radio});
        row("something else", {{u"Startup"_s, true}}, {});
        row("all", {{u"State"_s, 70U}, {u"WirelessEnabled"_s, true}},
            {Returning::Radio, Returning::Network});
    }

    void whatTheNetworkManagerSaysIsUnderstood()
    {
        QFETCH(QVariantMap, news);
        QFETCH(QList<Returning>, told);
        announce(Names::manager, news);
        QCOMPARE(m_told, told);
    }

    void whatADeviceSaysIsNotMeant()
    {
        const QString radio = m_network.addRadio();
        m_network.change(radio, Names::device, {{u"State"_s, 70U}});
        QCoreApplication::processEvents();
        QCOMPARE(m_told, QList<Returning>());
    }

    void onlyTheNetworkManagerIsBelieved()
    {
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"stranger"_s);
        auto signal = QDBusMessage::createSignal(Names::managerPath, Names::properties,
                                                 u"PropertiesChanged"_s);
        signal << Names::manager << QVariantMap{{u"State"_s, 70U}} << QStringList();
        bus.send(signal);
        // Order: what the bus is asked next, it answers when it has handed that out.
        QVERIFY(bus.interface()->isServiceRegistered(Names::service));
        announce(Names::manager, {{u"WirelessEnabled"_s, true}});
        QCOMPARE(m_told, QList<Returning>{Returning::Radio});
        QDBusConnection::disconnectFromBus(u"stranger"_s);
    }

    void aServiceThatComesLaterIsHeard()
    {
        m_network.stop();
        m_network.start();
        QCoreApplication::processEvents();
        m_told.clear();
        announce(Names::manager, {{u"State"_s, 70U}});
        QTRY_COMPARE(m_told, QList<Returning>{Returning::Network});
    }

    void withoutABusNothingIsTold()
    {
        DBusSystemEvents events(QDBusConnection(u"no such connection"_s));
        events.follow();
        events.rest();
    }

private:
    void announce(const QString &interface, const QVariantMap &news)
    {
        m_network.change(Names::managerPath, interface, news);
        QCoreApplication::processEvents();
    }

    NetworkManagerMock m_network;
    std::unique_ptr<DBusSystemEvents> m_events;
    QList<Returning> m_told;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::DBusSystemEventsTest)
#include "DBusSystemEventsTest.moc"
