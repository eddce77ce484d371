#include "Models/CheckIn.h"
#include "Platform/Errors/Outcome.h"
#include "Tests/Features/History/HistoryOnScreen.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/QRReader.h"

#include <QAccessible>
#include <QColor>
#include <QDir>
#include <QQuickItem>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr int manyVisits = 40;

Visits visits()
{
    Visits result;
    for (int number = 0; number < manyVisits; ++number)
        result.push_back(visit(u"2026-11-21T08:%1:00Z"_s.arg(number, 2, 10, QChar(u'0')),
                               cafe(u"Door %1"_s.arg(number))));
    return result;
}

QImage picture(const QColor &color)
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class VisitDetailViewTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QuickTest::failOnWarnings();
        m_history.emplace(visits());
        m_history->open();
    }
    void cleanup()
    {
        HistoryWorld::finishLoading();
        m_history.reset();
    }

    void anOpenVisitTakesThePlaceOfTheList()
    {
        openNewest();
        QVERIFY(history().shown("objectName", u"VisitDetailView"_s));
        QVERIFY(!list());
        QVERIFY(!history().text(u"Your check-ins"_s));
        QVERIFY(history().text(u"Door 39"_s));
        QVERIFY(history().text(u"Sat, Nov 21 · 08:39"_s));
    }

    void everyWayBackBringsTheListBackAsItWas_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("escape") << Qt::Key_Escape << Qt::KeyboardModifiers();
        QTest::newRow("alt and left") << Qt::Key_Left << Qt::KeyboardModifiers(Qt::AltModifier);
        QTest::newRow("back") << Qt::Key_Back << Qt::KeyboardModifiers();
        QTest::newRow("button") << Qt::Key_unknown << Qt::KeyboardModifiers();
    }

    void everyWayBackBringsTheListBackAsItWas()
    {
        QFETCH(const Qt::Key, key);
        QFETCH(const Qt::KeyboardModifiers, modifiers);
        list()->forceActiveFocus(Qt::TabFocusReason);
        history().key(Qt::Key_End);
        history().key(Qt::Key_Up);
        const double scrolled = list()->property("contentY").toDouble();
        QVERIFY(scrolled > 0);
        history().key(Qt::Key_Return);
        QVERIFY(history().screen.isVisitOpen());
        if (key == Qt::Key_unknown)
            history().click(history().control(u"Check-ins"_s));
        else
            history().key(key, modifiers);
        QVERIFY(!history().screen.isVisitOpen());
        QCOMPARE(list()->property("contentY").toDouble(), scrolled);
        QCOMPARE(history().focused(), u"Door 1"_s);
    }

    void theBackButtonOfAMouseGoesBackToo()
    {
        openNewest();
        QTest::mouseClick(&history().window(), Qt::BackButton, {}, QuickTest::centre(card()));
        QVERIFY(!history().screen.isVisitOpen());
    }

    void afterAClickTheFocusComesBackToTheRow()
    {
        history().click(history().control(u"Door 36"_s));
        QVERIFY(history().screen.isVisitOpen());
        history().key(Qt::Key_Escape);
        QCOMPARE(history().focused(), u"Door 36"_s);
    }

    void inTheListEscapeChangesNothing()
    {
        list()->forceActiveFocus(Qt::TabFocusReason);
        history().key(Qt::Key_Escape);
        QVERIFY(history().window().isVisible());
        QCOMPARE(history().focused(), u"Door 39"_s);
    }

    void theArrowKeysScrollTheCard()
    {
        newest()->setNote(u"Quiet. "_s.repeated(70));
        history().window().resize(600, 400);
        openNewest();
        QQuickItem *area = history().shown("canScroll", true);
        QVERIFY(area);
        const auto scrolled = [area] { return area->property("contentY").toDouble(); };
        history().key(Qt::Key_Up);
        QCOMPARE(scrolled(), 0.0);
        history().key(Qt::Key_Down);
        QCOMPARE(scrolled(), 40.0);
        for (int count = 0; count < 10; ++count)
            history().key(Qt::Key_PageDown);
        const double end = area->property("contentHeight").toDouble() - area->height();
        QCOMPARE(scrolled(), end);
        history().key(Qt::Key_PageUp);
        QVERIFY(scrolled() < end);
    }

    void assistiveToolsAreToldWhichVisitOpened()
    {
        openNewest();
        auto *opened = QAccessible::queryAccessibleInterface(history().window().activeFocusItem());
        QVERIFY(opened);
        QCOMPARE(opened->role(), QAccessible::Pane);
        QCOMPARE(opened->text(QAccessible::Name), u"Door 39"_s);
    }

    void tabComesToTheButtons()
    {
        openNewest();
        history().key(Qt::Key_Tab);
        QCOMPARE(history().focused(), u"Check-ins"_s);
        history().key(Qt::Key_Tab);
        QCOMPARE(history().focused(), u"Share"_s);
    }

    void theCodeIsOnTheCardOfASavedPasswordAlone()
    {
        history().world.savePassword(u"secret"_s, u"Blue"_s);
        openNewest();
        QVERIFY(!history().text(u"Scan to join wifi"_s));
        history().screen.closeVisit();
        newest()->cafe()->setLastKnownSSID(u"Blue"_s);
        openNewest();
        QVERIFY(history().text(u"Scan to join wifi"_s));
        QVERIFY(history().text(u"Blue"_s));
    }

    void theCodeCanBeScannedOffTheScreen_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("password");
        QTest::newRow("short") << u"Blue"_s << u"12345678"_s;
        QTest::newRow("Vietnamese") << u"Cà phê Gió Sông 5G"_s << u"ca phe sua da 35k"_s;
        QTest::newRow("longest") << QString(32, u'W') << QString(63, u'x');
    }

    void theCodeCanBeScannedOffTheScreen()
    {
        QFETCH(const QString, ssid);
        QFETCH(const QString, password);
        history().world.savePassword(password, ssid);
        newest()->cafe()->setLastKnownSSID(ssid);
        history().window().resize(600, 900);
        openNewest();
        QCOMPARE(QRReader::read(history().window().grabWindow()),
                 u"WIFI:T:WPA;S:%1;P:%2;;"_s.arg(ssid, password).toUtf8());
    }

    void theBannerShowsThePhotoWhileThereIsOne()
    {
        history().world.putPhoto(picture(Qt::blue), u"visit.png"_s);
        newest()->setPhotoFilename(u"visit.png"_s);
        openNewest();
        QCOMPARE(bannerColor(), QColor(Qt::blue));
        history().screen.closeVisit();
        QVERIFY(QDir(history().world.folder.path()).removeRecursively());
        openNewest();
        QCOMPARE(bannerColor(), QColor(0xE0, 0x8A, 0x3C));
    }

    void whatAVisitDoesNotHaveTakesNoRoom()
    {
        openNewest();
        const double bare = cardHeight();
        history().screen.closeVisit();
        newest()->setNote(u"Quiet."_s);
        openNewest();
        const double noted = cardHeight();
        QVERIFY(noted > bare);
        history().screen.closeVisit();
        newest()->setNote(QString());
        newest()->setCafe(nullptr);
        openNewest();
        QVERIFY(cardHeight() < bare);
        QVERIFY(history().text(u"Unknown café"_s));
    }

    void anotherVisitHasAViewOfItsOwn()
    {
        openNewest();
        history().screen.openVisit(2);
        history().settle();
        QVERIFY(history().text(u"Door 38"_s));
        QVERIFY(!history().text(u"Door 39"_s));
        history().key(Qt::Key_Escape);
        QVERIFY(list());
    }

    void sharingIsShown()
    {
        history().world.pasteboard.acceptances.willHold();
        openNewest();
        history().click(history().control(u"Share"_s));
        QQuickItem *button = history().control(u"Sharing…"_s);
        QVERIFY(button->property("busy").toBool());
        history().click(button);
        history().world.pasteboard.acceptances.release(
            Outcome<Acceptance>::success(Acceptance::Accepted));
        history().settle();
        QVERIFY(history().control(u"Copied!"_s));
        QCOMPARE(history().world.pasteboard.calls, (QStringList{u"clear"_s, u"image"_s}));
    }

    void aWindowThatIsClosedKeepsNothingOpen()
    {
        openNewest();
        history().window().close();
        QTRY_VERIFY(!history().screen.isVisitOpen());
        history().window().show();
        QVERIFY(QTest::qWaitForWindowActive(&history().window(), patienceMilliseconds));
        history().settle();
        QVERIFY(list());
    }

    void assistiveToolsAreToldOfTheCard()
    {
        newest()->setRatings({.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 0});
        openNewest();
        QStringList meters;
        for (QQuickItem *item : QuickTest::itemsUnder(history().window().contentItem()))
            if (item->isVisible() && item->property("value").isValid() &&
                item->property("label").isValid())
                meters.append(QAccessible::queryAccessibleInterface(item)->text(QAccessible::Name));
        QCOMPARE(meters, (QStringList{u"WiFi speed 5 of 5"_s, u"Power outlets 4 of 5"_s,
                                      u"Quiet 2 of 5"_s, u"Calls 0 of 5"_s}));
    }

private:
    [[nodiscard]] HistoryOnScreen &history() { return *m_history; }
    [[nodiscard]] QQuickItem *list() { return history().shown("count", manyVisits + 1); }
    [[nodiscard]] std::shared_ptr<CheckIn> newest()
    {
        return history().world.repository.visits.back();
    }
    void openNewest()
    {
        history().screen.openVisit(1);
        HistoryWorld::finishLoading();
        history().settle();
    }
    [[nodiscard]] QQuickItem *card() { return history().shown("objectName", u"VisitCardView"_s); }
    [[nodiscard]] double cardHeight() { return card()->height(); }
    /// A point in the middle, where there is no chip.
    [[nodiscard]] QColor bannerColor()
    {
        QQuickItem *banner = nullptr;
        for (QQuickItem *item : QuickTest::itemsUnder(card()))
            if (item->inherits("quorvel::VisitBanner"))
                banner = item;
        return QuickTest::pixel(banner, {banner->width() / 2, banner->height() / 2});
    }

    std::optional<HistoryOnScreen> m_history;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::VisitDetailViewTest)
#include "VisitDetailViewTest.moc"
