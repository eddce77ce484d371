#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Probes/ProbeWorld.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/QuickTest.h"
#include "_Probes/ProbeViewModel.h"

#include <QAccessible>
#include <QClipboard>
#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QKeySequence>
#include <QQmlEngine>
#include <QRectF>
#include <QSGRendererInterface>
#include <QVariant>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class ProbeWindowTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        m_world.emplace();
        m_probe.reset(new ProbeViewModel(m_world->makeViewModel()));
        m_window.reset(qobject_cast<QQuickWindow *>(
            ViewFactory::make(m_engine, u"Probes"_s, u"ProbeWindow"_s,
                              {{u"probe"_s, QVariant::fromValue(m_probe.get())}})
                .release()));
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get(), patienceMilliseconds));
        settle();
    }
    void cleanup()
    {
        m_window.reset();
        m_probe.reset();
    }

    void theHeadingAndTheIdleLoopAreShown()
    {
        QVERIFY(shownText(u"PHASE 8 — DAILY LOOP"_s));
        QVERIFY(shownText(u"idle — bấm Run để bắt đầu daily loop"_s));
        QCOMPARE(shownButtons(), QStringList({u"Run"_s, u"Cancel"_s, u"Locate"_s, u"Search cafés"_s,
                                              u"Read check-ins"_s, u"Copy log"_s}));
    }

    void retryIsOfferedForAnErrorAlone()
    {
        m_world->loop.location.authorize(AuthorizationStatus::Denied);
        press(u"Run"_s);
        auto *text = shownText(u"Location access denied. Open System Settings to enable."_s);
        QCOMPARE(text->property("color").value<QColor>(), Theme::shared().color()->error());
        m_world->loop.willFindAll();
        press(u"Retry"_s);
        QVERIFY(!shownButtons().contains(u"Retry"_s));
        text = shownText(m_probe->loop()->text());
        QCOMPARE(text->property("font").value<QFont>(), Theme::shared().font()->caption());
    }

    void cancelEndsTheLoad()
    {
        m_world->loop.location.holdAuthorization();
        press(u"Run"_s);
        QVERIFY(shownText(u"Locating"_s));
        press(u"Cancel"_s);
        m_world->loop.location.authorizationWaiter.finish(AuthorizationStatus::Denied);
        settle();
        QVERIFY(shownText(u"Locating"_s));
    }

    void theKeyboardBeginsAtRunAndReachesEverything()
    {
        QStringList labels;
        do {
            labels.append(focusedName());
            QTest::keyClick(m_window.get(), Qt::Key_Tab);
        } while (focusedName() != labels.first() && labels.size() < 20);
        QCOMPARE(labels, QStringList({u"Run"_s, u"Cancel"_s, u"Locate"_s, u"Search cafés"_s,
                                      u"Read check-ins"_s, u"Copy log"_s, u"Log"_s}));
    }

    void aButtonIsBusyWhileItsActionRuns()
    {
        m_world->location.holdAuthorization();
        press(u"Locate"_s);
        QVERIFY(shown("label", u"Locate"_s)->property("busy").toBool());
        QVERIFY(!shown("label", u"Search cafés"_s)->property("busy").toBool());
    }

    void theLinesHaveTheColoursOfTheirKinds()
    {
        m_world->wifi.ssid = u"Gió Sông 5G"_s;
        m_world->willLocate(LoopWorld::home());
        press(u"Locate"_s);
        const auto colour = [this](const QString &text) {
            return shownText(text)->property("color").value<QColor>();
        };
        const auto &theme = *Theme::shared().color();
        QCOMPARE(colour(u"SSID before Location: (nil)"_s), theme.error());
        QCOMPARE(colour(u"Auth status on launch: notDetermined"_s), theme.textSecondary());
        QCOMPARE(colour(u"Coordinates: 0.00000, 106.70000"_s), theme.textPrimary());
        QCOMPARE(shown("name", u"checkmark"_s)->property("color").value<QColor>(), theme.success());
    }

    void theLogGoesAlongWithItsEnd()
    {
        fillLog();
        QVERIFY(isInSight(u"0 check-in(s) stored"_s));
        QVERIFY(list()->property("atYEnd").toBool());
    }

    void whoHasScrolledBackStaysThere()
    {
        fillLog();
        list()->forceActiveFocus();
        key(Qt::Key_Home);
        QVERIFY(isInSight(u"SSID before Location: (nil)"_s));
        press(u"Copy log"_s);
        QVERIFY(isInSight(u"SSID before Location: (nil)"_s));
        key(Qt::Key_End);
        QVERIFY(list()->property("atYEnd").toBool());
        press(u"Copy log"_s);
        QVERIFY(list()->property("atYEnd").toBool());
    }

    void theKeysScrollTheLog()
    {
        fillLog();
        list()->forceActiveFocus();
        qreal last = contentY();
        for (const Qt::Key up : {Qt::Key_Up, Qt::Key_PageUp}) {
            key(up);
            QVERIFY(contentY() < last);
            last = contentY();
        }
        for (const Qt::Key down : {Qt::Key_Down, Qt::Key_PageDown}) {
            key(down);
            QVERIFY(contentY() > last);
            last = contentY();
        }
    }

    void aLineCanBeMarkedAndCopied()
    {
        auto *line = shownText(u"Auth status on launch: notDetermined"_s);
        QTest::mouseDClick(m_window.get(), Qt::LeftButton, {},
                           line->mapToScene({12, line->height() / 2}).toPoint());
        QTest::keySequence(m_window.get(), QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Auth"_s);
        QVERIFY(line->property("readOnly").toBool());
    }

    void aNetworkCannotFormatTheLog()
    {
        m_world->wifi.ssid = u"<b>x</b>"_s;
        m_world->willLocate(LoopWorld::home());
        press(u"Locate"_s);
        auto *line = shownText(u"SSID after Location: <b>x</b>"_s);
        QVERIFY(line);
        QCOMPARE(line->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void aScreenReaderReadsTheLog()
    {
        auto *log = QAccessible::queryAccessibleInterface(list());
        QCOMPARE(log->role(), QAccessible::List);
        QCOMPARE(log->text(QAccessible::Name), u"Log"_s);
        auto *line =
            QAccessible::queryAccessibleInterface(shownText(u"SSID before Location: (nil)"_s));
        QCOMPARE(line->text(QAccessible::Name), u"SSID before Location: (nil)"_s);
    }

    void closingInTheMiddleOfAnActionLetsItEnd()
    {
        m_world->location.holdAuthorization();
        m_world->loop.location.holdAuthorization();
        press(u"Locate"_s);
        press(u"Run"_s);
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QVERIFY(!m_window->isVisible());
        m_world->location.locate(LoopWorld::home());
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        settle();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get(), patienceMilliseconds));
        settle();
        QVERIFY(shownText(u"Coordinates: 0.00000, 106.70000"_s));
        QVERIFY(!shown("label", u"Locate"_s)->property("busy").toBool());
    }

    void takenDownInTheMiddleOfAnActionItIsGone()
    {
        m_world->location.holdAuthorization();
        m_world->loop.location.holdAuthorization();
        press(u"Locate"_s);
        press(u"Run"_s);
        m_window.reset();
        m_probe.reset();
        m_world->location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        m_world->loop.location.authorizationWaiter.finish(AuthorizationStatus::AuthorizedAlways);
        LoopWorld::settle();
        QCOMPARE(m_world->location.calls, QStringList(u"requestAuthorization"_s));
    }

private:
    void settle()
    {
        for (int frame = 0; frame < 3; ++frame) {
            LoopWorld::settle();
            m_window->grabWindow();
        }
    }
    void press(const QString &label)
    {
        QuickTest::click(shown("label", label));
        settle();
    }
    void key(Qt::Key key)
    {
        QTest::keyClick(m_window.get(), key);
        settle();
    }
    void fillLog()
    {
        for (int count = 0; count < 20; ++count)
            press(u"Read check-ins"_s);
    }

    [[nodiscard]] QQuickItem *shown(const char *property, const QVariant &value)
    {
        for (QQuickItem *item : QuickTest::itemsUnder(m_window->contentItem()))
            if (item->isVisible() && item->property(property) == value)
                return item;
        return nullptr;
    }
    [[nodiscard]] QQuickItem *shownText(const QString &text)
    {
        for (QQuickItem *item : QuickTest::itemsUnder(m_window->contentItem()))
            if (item->isVisible() && item->property("text") == text &&
                item->property("font").isValid())
                return item;
        return nullptr;
    }
    [[nodiscard]] QStringList shownButtons()
    {
        QStringList labels;
        for (QQuickItem *item : QuickTest::itemsUnder(m_window->contentItem()))
            if (item->isVisible() && item->activeFocusOnTab() && item->property("label").isValid())
                labels.append(item->property("label").toString());
        return labels;
    }
    [[nodiscard]] QString focusedName()
    {
        auto *focused = QAccessible::queryAccessibleInterface(m_window->activeFocusItem());
        return focused ? focused->text(QAccessible::Name) : QString();
    }
    [[nodiscard]] QQuickItem *list()
    {
        for (QQuickItem *item : QuickTest::itemsUnder(m_window->contentItem()))
            if (item->inherits("QQuickListView"))
                return item;
        return nullptr;
    }
    [[nodiscard]] qreal contentY() { return list()->property("contentY").toReal(); }
    [[nodiscard]] bool isInSight(const QString &text)
    {
        const QRectF window = list()->mapRectToScene(QRectF({}, list()->size()));
        for (QQuickItem *item : QuickTest::itemsUnder(list()))
            if (item->property("text") == text && item->isVisible() &&
                window.contains(item->mapRectToScene(QRectF({}, item->size()))))
                return true;
        return false;
    }

    std::optional<ProbeWorld> m_world;
    // Order: the window is destroyed before the objects that it is bound to.
    std::unique_ptr<ProbeViewModel> m_probe;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::ProbeWindowTest)
#include "ProbeWindowTest.moc"
