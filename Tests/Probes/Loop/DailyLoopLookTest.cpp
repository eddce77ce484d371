#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Tests/Probes/ProbeWorld.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/ViewLook.h"
#include "_Probes/ProbeViewModel.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSizeF>
#include <QVariant>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// How the state of the daily loop looks in the diagnostics.
class DailyLoopLookTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
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

    void theHeadingIsInSmallCapitals()
    {
        compareText(u"PHASE 8 — DAILY LOOP"_s, "textTertiary", "trackedEyebrow");
        QCOMPARE(ViewLook::font("trackedEyebrow").pixelSize(), 10);
    }

    void idlenessIsAText()
    {
        compareText(u"idle — bấm Run để bắt đầu daily loop"_s, "textPrimary", "body");
        QVERIFY(!progress()->isVisible());
    }

    void loadingIsASmallSignOfProgressAndAText()
    {
        m_world->loop.location.holdAuthorization();
        m_probe->loop()->run();
        settle();
        compareText(u"Locating"_s, "textPrimary", "body");
        QVERIFY(progress()->isVisible());
        QCOMPARE(progress()->size(), QSizeF(14, 14));
        QVERIFY(ViewLook::across(progress(), text(u"Locating"_s)) > 0);
    }

    void anErrorIsInTheColourOfErrors()
    {
        m_world->loop.location.authorize(AuthorizationStatus::Denied);
        m_probe->loop()->run();
        settle();
        compareText(u"Location access denied. Open System Settings to enable."_s, "error", "body");
        QCOMPARE(buttons(), (QStringList{u"Run"_s, u"Retry"_s, u"Cancel"_s}));
        QVERIFY(!progress()->isVisible());
    }

    void aResultIsFourLinesInTheFontOfCaptions()
    {
        m_world->loop.willFindAll();
        m_probe->loop()->run();
        settle();
        compareText(u"Near\n23° · Feels 25°\nSSID: (none)  ·  remembered pass: false\n"
                    "2 nearby candidate(s)"_s,
                    "textPrimary", "caption");
        QCOMPARE(buttons(), (QStringList{u"Run"_s, u"Cancel"_s}));
    }

    void thePanelIsInItsOrder()
    {
        const QQuickItem *heading = text(u"PHASE 8 — DAILY LOOP"_s);
        const QQuickItem *state = text(u"idle — bấm Run để bắt đầu daily loop"_s);
        QVERIFY(ViewLook::down(heading, state) > 0);
        QVERIFY(ViewLook::down(state, QuickTest::shown(*m_window, "label", u"Run"_s)) > 0);
    }

    void theWindowHasItsName() { QCOMPARE(m_window->title(), u"Probe8"_s); }

private:
    void settle()
    {
        for (int frame = 0; frame < 3; ++frame) {
            LoopWorld::settle();
            m_window->grabWindow();
        }
    }
    [[nodiscard]] QQuickItem *text(const QString &words)
    {
        return ViewLook::text(*m_window, words);
    }
    void compareText(const QString &words, const QByteArray &color, const QByteArray &font)
    {
        ViewLook::compareText(*m_window, words, color, font);
    }
    [[nodiscard]] QQuickItem *progress()
    {
        QQuickItem *panel = text(u"PHASE 8 — DAILY LOOP"_s)->parentItem();
        return ViewLook::findClass(panel, "quorvel::ProgressDots");
    }
    /// Those of the loop, from left to right.
    [[nodiscard]] QStringList buttons()
    {
        QStringList labels;
        const QQuickItem *row = QuickTest::shown(*m_window, "label", u"Run"_s)->parentItem();
        double left = -1;
        for (const QQuickItem *item : row->childItems()) {
            if (!item->isVisible())
                continue;
            labels.append(item->x() > left ? item->property("label").toString() : u"behind"_s);
            left = item->x();
        }
        return labels;
    }

    std::optional<ProbeWorld> m_world;
    // Order: what the window is bound to outlives it.
    std::unique_ptr<ProbeViewModel> m_probe;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::DailyLoopLookTest)
#include "DailyLoopLookTest.moc"
