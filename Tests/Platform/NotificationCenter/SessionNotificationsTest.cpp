#include "Platform/NotificationCenter/SessionNotifications.h"

#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Tests/Support/Patience.h"

#include <QDBusMessage>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const QString news = u"com.zantho.quorvel.news"_s;

QDBusConnection process(const QString &name)
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
}

} // namespace

/// On a private bus, where each connection stands for a process.
class SessionNotificationsTest final : public QObject
{
    Q_OBJECT

private slots:
    void whatIsAnnouncedIsPostedInOtherProcesses()
    {
        NotificationCenter center;
        QStringList heard;
        const auto observation = center.observe(news, [&heard] { heard.append(news); });
        const auto other = center.observe(u"other"_s, [&heard] { heard.append(u"other"_s); });
        const SessionNotifications notifications(process(u"program"_s), center);
        SessionNotifications::announce(process(u"command"_s), news);
        QTRY_COMPARE(heard, QStringList{news});
        SessionNotifications::announce(process(u"command"_s), u"other"_s);
        QTRY_COMPARE(heard, QStringList({news, u"other"_s}));
    }

    void aCommandMayEndRightAfterIt()
    {
        NotificationCenter center;
        int posts = 0;
        const auto observation = center.observe(news, [&posts] { ++posts; });
        const SessionNotifications notifications(process(u"program"_s), center);
        SessionNotifications::announce(process(u"brief command"_s), news);
        QDBusConnection::disconnectFromBus(u"brief command"_s);
        QTRY_COMPARE(posts, 1);
    }

    void anotherSignalIsNotHeard()
    {
        NotificationCenter center;
        int posts = 0;
        const auto observation = center.observe(news, [&posts] { ++posts; });
        const SessionNotifications notifications(process(u"program"_s), center);
        const auto stranger = process(u"stranger"_s);
        QVERIFY(stranger.send(
            QDBusMessage::createSignal(u"/com/zantho/quorvel"_s, u"org.example"_s, u"Posted"_s)
            << news));
        // A later announcement arrives later.
        SessionNotifications::announce(stranger, news);
        QTRY_COMPARE(posts, 1);
    }

    void withoutABusNobodyHears()
    {
        NotificationCenter center;
        const QDBusConnection closed(u"nowhere"_s);
        const SessionNotifications notifications(closed, center);
        SessionNotifications::announce(closed, news);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SessionNotificationsTest)
#include "SessionNotificationsTest.moc"
