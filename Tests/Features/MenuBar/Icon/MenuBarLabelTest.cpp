#include "Features/MenuBar/Icon/MenuBarLabel.h"

#include "Features/MenuBar/Icon/MenuBarIcon.h"
#include "Platform/SessionLock/FakeSessionLock.h"
#include "Platform/StatusItem/FakeStatusItem.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPointer>
#include <QSet>
#include <QTest>
#include <QTimerEvent>

#include <memory>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

QTimer *tickerOf(const MenuBarLabel &label)
{
    return label.findChild<QTimer *>(u"ticker"_s);
}

/// Fires the timer, as the event loop does after the interval.
void letElapse(QTimer *timer)
{
    QTimerEvent elapsed(timer->timerId());
    QCoreApplication::sendEvent(timer, &elapsed);
}

QList<qint64> keysOf(const QList<QIcon> &icons)
{
    QList<qint64> keys;
    for (const QIcon &icon : icons)
        keys.append(icon.cacheKey());
    return keys;
}

QImage pixelsOf(const QIcon &icon)
{
    return icon.pixmap(MenuBarIcon::sizePoints).toImage();
}

} // namespace

class MenuBarLabelTest final : public QObject
{
    Q_OBJECT

private slots:
    void startsWithTheNormalPicture()
    {
        FakeStatusItem item;
        const FakeSessionLock lock;
        const MenuBarLabel label(item, lock);
        QVERIFY(!label.enlarged());
        QCOMPARE(keysOf(item.icons), QList<qint64>{MenuBarLabel::normal().cacheKey()});
    }

    void tickerBeatsEvery650MillisecondsFromTheStart()
    {
        FakeStatusItem item;
        const FakeSessionLock lock;
        item.setShown(true);
        const MenuBarLabel label(item, lock);
        QTimer *ticker = tickerOf(label);
        QVERIFY(ticker->isActive());
        QVERIFY(!ticker->isSingleShot());
        QCOMPARE(ticker->interval(), 650);
    }

    void everyTickChangesThePicture()
    {
        FakeStatusItem item;
        const FakeSessionLock lock;
        item.setShown(true);
        const MenuBarLabel label(item, lock);
        const qint64 normal = MenuBarLabel::normal().cacheKey();
        const qint64 large = MenuBarLabel::large().cacheKey();
        for (const bool enlarged : {true, false, true}) {
            letElapse(tickerOf(label));
            QCOMPARE(label.enlarged(), enlarged);
        }
        QCOMPARE(keysOf(item.icons), QList<qint64>({normal, large, normal, large}));
    }

    void tickerRestsWhileNoHostShowsTheItem()
    {
        FakeStatusItem item;
        const FakeSessionLock lock;
        const MenuBarLabel label(item, lock);
        QVERIFY(!tickerOf(label)->isActive());
        item.setShown(true);
        QVERIFY(tickerOf(label)->isActive());
        item.setShown(false);
        QVERIFY(!tickerOf(label)->isActive());
    }

    void tickerRestsWhileTheSessionIsLocked()
    {
        FakeStatusItem item;
        FakeSessionLock lock;
        item.setShown(true);
        const MenuBarLabel label(item, lock);
        lock.setLocked(true);
        QVERIFY(!tickerOf(label)->isActive());
        lock.setLocked(false);
        QVERIFY(tickerOf(label)->isActive());
    }

    void unlockingDoesNotWakeATickerThatNoHostShows()
    {
        FakeStatusItem item;
        FakeSessionLock lock;
        item.setShown(true);
        const MenuBarLabel label(item, lock);
        lock.setLocked(true);
        item.setShown(false);
        lock.setLocked(false);
        QVERIFY(!tickerOf(label)->isActive());
        lock.setLocked(true);
        item.setShown(true);
        QVERIFY(!tickerOf(label)->isActive());
    }

    void restKeepsThePicture()
    {
        FakeStatusItem item;
        const FakeSessionLock lock;
        item.setShown(true);
        const MenuBarLabel label(item, lock);
        letElapse(tickerOf(label));
        item.setShown(false);
        item.setShown(true);
        QVERIFY(label.enlarged());
        letElapse(tickerOf(label));
        QVERIFY(!label.enlarged());
    }

    void tickerEndsWithTheLabel()
    {
        FakeStatusItem item;
        const FakeSessionLock lock;
        item.setShown(true);
        auto label = std::make_unique<MenuBarLabel>(item, lock);
        const QPointer<QTimer> ticker = tickerOf(*label);
        label.reset();
        QVERIFY(!ticker);
        item.setShown(false);
        QCOMPARE(item.icons.size(), 1);
    }

    void picturesAreDrawnOnceForAllLabels()
    {
        FakeStatusItem one;
        FakeStatusItem other;
        const FakeSessionLock lock;
        for (FakeStatusItem *item : {&one, &other}) {
            item->setShown(true);
            const MenuBarLabel label(*item, lock);
            for (int tick = 0; tick < 5; ++tick)
                letElapse(tickerOf(label));
        }
        const QList<qint64> keys = keysOf(one.icons + other.icons);
        QCOMPARE(keys.size(), 12);
        QCOMPARE(
            QSet<qint64>(keys.begin(), keys.end()),
            QSet<qint64>({MenuBarLabel::normal().cacheKey(), MenuBarLabel::large().cacheKey()}));
    }

    void picturesDifferInTheirDot()
    {
        QCOMPARE(pixelsOf(MenuBarLabel::normal()),
                 MenuBarIcon::picture(MenuBarIcon::normalDotRadius, 1).toImage());
        QCOMPARE(pixelsOf(MenuBarLabel::large()),
                 MenuBarIcon::picture(MenuBarIcon::largeDotRadius, 1).toImage());
        QVERIFY(pixelsOf(MenuBarLabel::normal()) != pixelsOf(MenuBarLabel::large()));
    }
};

QTEST_MAIN(MenuBarLabelTest)
#include "MenuBarLabelTest.moc"
