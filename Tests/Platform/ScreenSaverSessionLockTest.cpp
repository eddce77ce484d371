#include "Platform/SessionLock/ScreenSaverSessionLock.h"

#include "Tests/Support/Patience.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>
#include <QVariant>

#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

/// A screen saver on the real bus, over a separate connection, that only announces itself.
class Saver final
{
public:
    explicit Saver(const QString &name)
        : m_name(name)
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name))
    {}
    ~Saver() { QDBusConnection::disconnectFromBus(m_name); }

    void announce(const QString &interface, const QVariant &isActive) const
    {
        m_bus.send(QDBusMessage::createSignal(u"/ScreenSaver"_s, interface, u"ActiveChanged"_s)
                   << isActive);
        // Order: the bus answers this call after it has delivered the announcement.
        m_bus.interface()->isServiceRegistered(u"org.example"_s);
    }

private:
    QString m_name;
    QDBusConnection m_bus;
};

} // namespace

class ScreenSaverSessionLockTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_saver.emplace(u"saver"_s);
        m_lock.emplace(QDBusConnection::sessionBus());
        m_changes.emplace(&*m_lock, &SessionLock::isLockedChanged);
        // The bus has to know of the subscription before somebody else announces.
        QDBusConnection::sessionBus().interface()->isServiceRegistered(u"org.example"_s);
    }
    void cleanup()
    {
        m_changes.reset();
        m_lock.reset();
        m_saver.reset();
    }

    void aSessionIsUnlockedUntilItIsToldOtherwise() { QVERIFY(!m_lock->isLocked()); }

    void everyDesktopsSaverIsHeard_data()
    {
        QTest::addColumn<QString>("interface");
        for (const auto &interface :
             {u"org.freedesktop.ScreenSaver"_s, u"org.gnome.ScreenSaver"_s,
              u"org.cinnamon.ScreenSaver"_s, u"org.mate.ScreenSaver"_s, u"org.xfce.ScreenSaver"_s})
            QTest::newRow(qUtf8Printable(interface)) << interface;
    }

    void everyDesktopsSaverIsHeard()
    {
        QFETCH(QString, interface);
        m_saver->announce(interface, true);
        QTRY_VERIFY(m_lock->isLocked());
        m_saver->announce(interface, false);
        QTRY_VERIFY(!m_lock->isLocked());
        QCOMPARE(m_changes->count(), 2);
    }

    void whatIsToldTwiceIsOneChange()
    {
        m_saver->announce(u"org.kde.screensaver.ScreenSaver"_s, true);
        m_saver->announce(u"org.freedesktop.ScreenSaver"_s, true);
        m_saver->announce(u"org.freedesktop.ScreenSaver"_s, false);
        QTRY_VERIFY(m_changes->count() > 1);
        QVERIFY(!m_lock->isLocked());
        QCOMPARE(m_changes->count(), 2);
    }

    void nobodyElseIsMeant()
    {
        m_saver->announce(u"org.example.Battery"_s, true);
        m_saver->announce(u"org.gnome.ScreenSaver"_s, u"yes"_s);
        m_saver->announce(u"org.gnome.ScreenSaver"_s, false);
        m_saver->announce(u"org.gnome.ScreenSaver"_s, true);
        QTRY_VERIFY(m_lock->isLocked());
        QCOMPARE(m_changes->count(), 1);
    }

    void aSaverThatEndsWithoutAWordHasUnlocked()
    {
        m_saver->announce(u"org.gnome.ScreenSaver"_s, true);
        QTRY_VERIFY(m_lock->isLocked());
        m_saver.reset();
        QTRY_VERIFY(!m_lock->isLocked());
    }

    void anotherProgramThatEndsUnlocksNothing()
    {
        m_saver->announce(u"org.gnome.ScreenSaver"_s, true);
        QTRY_VERIFY(m_lock->isLocked());
        std::optional<Saver> other(u"other"_s);
        other->announce(u"org.example.Battery"_s, true);
        other.reset();
        m_saver->announce(u"org.gnome.ScreenSaver"_s, true);
        m_saver->announce(u"org.gnome.ScreenSaver"_s, false);
        QTRY_VERIFY(!m_lock->isLocked());
        QCOMPARE(m_changes->count(), 2);
    }

    void withoutABusItIsNeverLocked()
    {
        const ScreenSaverSessionLock lock(QDBusConnection(u"no such connection"_s));
        QVERIFY(!lock.isLocked());
    }

private:
    std::optional<Saver> m_saver;
    std::optional<ScreenSaverSessionLock> m_lock;
    std::optional<QSignalSpy> m_changes;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ScreenSaverSessionLockTest)
#include "ScreenSaverSessionLockTest.moc"
