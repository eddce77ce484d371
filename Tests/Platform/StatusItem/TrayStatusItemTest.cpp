#include "Platform/StatusItem/TrayStatusItem.h"

#include "Tests/Platform/StatusItem/FakeNotifierWatcher.h"
#include "Tests/Support/Patience.h"

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QPixmap>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTest>

#include <chrono>
#include <memory>

using namespace quorvel;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

using Answer = FakeNotifierWatcher::Answer;

namespace {

QIcon squareIcon(Qt::GlobalColor colour)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

QSystemTrayIcon *trayIconOf(const TrayStatusItem &item)
{
    return item.findChild<QSystemTrayIcon *>();
}

} // namespace

/// On a private session bus whose status notifier watcher is ours.
class TrayStatusItemTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_watcher = std::make_unique<FakeNotifierWatcher>(Answer::WithHost);
        m_item = std::make_unique<TrayStatusItem>();
        m_item->setIcon(squareIcon(Qt::red));
    }

    void cleanup()
    {
        m_item.reset();
        m_watcher.reset();
    }

    void appearsWithTheHost()
    {
        const QSignalSpy isShownChanged(m_item.get(), &StatusItem::isShownChanged);
        QVERIFY(!m_item->isShown());
        QVERIFY(!trayIconOf(*m_item));
        m_watcher->appear();
        QTRY_VERIFY(m_item->isShown());
        QVERIFY(trayIconOf(*m_item));
        QVERIFY(trayIconOf(*m_item)->isVisible());
        QCOMPARE(isShownChanged.size(), 1);
    }

    void silentWatcherTouchesNoTray()
    {
        m_watcher->answer = Answer::Silence;
        m_watcher->appear();
        const TrayStatusItem item(
            {.reply = 100ms, .hostGrace = 0ms, .firstRetry = 1ms, .longestRetry = 1ms});
        QTRY_VERIFY(m_watcher->calls.size() >= 3);
        QVERIFY(!trayIconOf(item));
        QVERIFY(!item.isShown());
        QCOMPARE(m_watcher->calls.count(u"Get"_s), m_watcher->calls.size());
    }

    void keepsItsTrayIconWhileTheHostIsGone()
    {
        show();
        const QSignalSpy isShownChanged(m_item.get(), &StatusItem::isShownChanged);
        const QSystemTrayIcon *trayIcon = trayIconOf(*m_item);
        m_watcher->vanish();
        QTRY_VERIFY(!m_item->isShown());
        m_watcher->appear();
        QTRY_VERIFY(m_item->isShown());
        QCOMPARE(trayIconOf(*m_item), trayIcon);
        QCOMPARE(isShownChanged.size(), 2);
    }

    void showsThePictureGivenBeforeTheHostCame()
    {
        const QIcon latest = squareIcon(Qt::green);
        m_item->setIcon(latest);
        show();
        QCOMPARE(trayIconOf(*m_item)->icon().cacheKey(), latest.cacheKey());
    }

    void showsThePictureGivenAfterTheHostCame()
    {
        show();
        const QIcon latest = squareIcon(Qt::blue);
        m_item->setIcon(latest);
        QCOMPARE(trayIconOf(*m_item)->icon().cacheKey(), latest.cacheKey());
    }

    void isNamed()
    {
        show();
        QCOMPARE(trayIconOf(*m_item)->toolTip(), u"Quorvel"_s);
    }

    void onlyAClickActivates_data()
    {
        QTest::addColumn<QSystemTrayIcon::ActivationReason>("reason");
        QTest::addColumn<int>("activations");
        QTest::newRow("left click") << QSystemTrayIcon::Trigger << 1;
        QTest::newRow("second of a double click") << QSystemTrayIcon::DoubleClick << 0;
        QTest::newRow("right click") << QSystemTrayIcon::Context << 0;
        QTest::newRow("middle click") << QSystemTrayIcon::MiddleClick << 0;
        QTest::newRow("unknown") << QSystemTrayIcon::Unknown << 0;
    }

    void onlyAClickActivates()
    {
        QFETCH(const QSystemTrayIcon::ActivationReason, reason);
        show();
        const QSignalSpy activated(m_item.get(), &StatusItem::activated);
        emit trayIconOf(*m_item)->activated(reason);
        QTEST(int(activated.size()), "activations");
    }

    void menuOpensAndQuits()
    {
        show();
        const QSignalSpy openRequested(m_item.get(), &StatusItem::openRequested);
        const QSignalSpy quitRequested(m_item.get(), &StatusItem::quitRequested);
        const QList<QAction *> actions = trayIconOf(*m_item)->contextMenu()->actions();
        QCOMPARE(actions.size(), 2);

        QCOMPARE(actions[0]->text(), u"Open Quorvel"_s);
        actions[0]->trigger();
        QCOMPARE(openRequested.size(), 1);
        QCOMPARE(quitRequested.size(), 0);

        QCOMPARE(actions[1]->text(), u"Quit Quorvel"_s);
        actions[1]->trigger();
        QCOMPARE(openRequested.size(), 1);
        QCOMPARE(quitRequested.size(), 1);
    }

    void hasNoPlaceWhileNobodyShowsIt()
    {
        QVERIFY(m_item->geometry().isEmpty());
        show();
        QCOMPARE(m_item->geometry(), trayIconOf(*m_item)->geometry());
    }

private:
    void show()
    {
        m_watcher->appear();
        QTRY_VERIFY(m_item->isShown());
    }

    std::unique_ptr<FakeNotifierWatcher> m_watcher;
    std::unique_ptr<TrayStatusItem> m_item;
};

QTEST_MAIN(TrayStatusItemTest)
#include "TrayStatusItemTest.moc"
