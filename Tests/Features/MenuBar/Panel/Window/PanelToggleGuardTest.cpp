#include "Features/MenuBar/Panel/Window/PanelToggleGuard.h"

#include <QTest>

#include <chrono>

using namespace quorvel;
using namespace std::chrono_literals;

namespace {

/// An event of the panel and its time.
enum class Event { Click, FocusLoss };

struct Happening
{
    std::chrono::milliseconds at;
    Event event;
};

using Happenings = QList<Happening>;

} // namespace

class PanelToggleGuardTest final : public QObject
{
    Q_OBJECT

private slots:
    void clicksCountUnlessTheyAreEchoes_data()
    {
        QTest::addColumn<Happenings>("happenings");
        QTest::addColumn<QList<bool>>("admitted");
        constexpr auto click = Event::Click;
        constexpr auto loss = Event::FocusLoss;
        const auto row = [](const char *name, const Happenings &happenings,
                            const QList<bool> &admitted) {
            QTest::newRow(name) << happenings << admitted;
        };
        row("first click", {{0ms, click}}, {true});
        row("double click", {{0ms, click}, {120ms, click}}, {true, false});
        row("triple activation", {{0ms, click}, {1ms, click}, {2ms, click}}, {true, false, false});
        row("second click at 299 ms", {{0ms, click}, {299ms, click}}, {true, false});
        row("second click at 300 ms", {{0ms, click}, {300ms, click}}, {true, true});
        row("an echo starts no new interval", {{0ms, click}, {250ms, click}, {310ms, click}},
            {true, false, true});
        row("click that closed it by taking the focus",
            {{0ms, click}, {5000ms, loss}, {5111ms, click}}, {true, false});
        row("299 ms after the loss", {{0ms, loss}, {299ms, click}}, {false});
        row("300 ms after the loss", {{0ms, loss}, {300ms, click}}, {true});
        row("clicks far apart", {{0ms, click}, {2s, click}, {4s, click}}, {true, true, true});
    }

    void clicksCountUnlessTheyAreEchoes()
    {
        QFETCH(Happenings, happenings);
        QFETCH(QList<bool>, admitted);
        // The clock of a machine that has run for some time.
        auto now = 100h + 0ms;
        const auto start = now;
        PanelToggleGuard guard([&now] { return now; });
        QList<bool> answers;
        for (const auto &[at, event] : happenings) {
            now = start + at;
            if (event == Event::Click)
                answers << guard.admitClick();
            else
                guard.noteFocusLoss();
        }
        QCOMPARE(answers, admitted);
    }

    void firstClickAfterTheMachineStartedCounts()
    {
        PanelToggleGuard guard([] { return 5ms; });
        QVERIFY(guard.admitClick());
    }

    void systemClockIsTheDefault()
    {
        PanelToggleGuard guard;
        QVERIFY(guard.admitClick());
        QVERIFY(!guard.admitClick());
    }
};

QTEST_APPLESS_MAIN(PanelToggleGuardTest)
#include "PanelToggleGuardTest.moc"
