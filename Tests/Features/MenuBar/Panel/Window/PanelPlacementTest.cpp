#include "Features/MenuBar/Panel/Window/PanelPlacement.h"

#include <QTest>

using namespace quorvel;

namespace {

constexpr QSize panel(340, 240);
constexpr QPoint nowhere(-5000, -5000);

const ScreenArea topBar{.geometry = {0, 0, 1280, 900}, .available = {0, 26, 1280, 874}};
const ScreenArea bottomBar{.geometry = {0, 0, 1280, 900}, .available = {0, 0, 1280, 870}};
const ScreenArea leftBar{.geometry = {0, 0, 1280, 900}, .available = {60, 0, 1220, 900}};
const ScreenArea rightScreen{.geometry = {1280, 0, 1920, 1080}, .available = {1280, 0, 1920, 1040}};
const ScreenArea leftScreen{.geometry = {-1024, 100, 1024, 768},
                            .available = {-1024, 124, 1024, 744}};
const ScreenArea upperScreen{.geometry = {0, -1080, 1920, 1080},
                             .available = {0, -1080, 1920, 1050}};
/// 3840 x 2160 pixels at scale 2, to the left of and above the first screen, with a gap between
/// them.
const ScreenArea denseScreen{.geometry = {-3840, -2160, 1920, 1080},
                             .available = {-3840, -2134, 1920, 1054}};
const ScreenArea tiny{.geometry = {0, 0, 320, 200}, .available = {0, 20, 320, 180}};

} // namespace

class PanelPlacementTest final : public QObject
{
    Q_OBJECT

private slots:
    void panelHangsWhereItShould_data()
    {
        QTest::addColumn<QList<ScreenArea>>("screens");
        QTest::addColumn<QRect>("anchor");
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<QPoint>("corner");
        const auto row = [](const char *name, const QList<ScreenArea> &screens, const QRect &anchor,
                            QPoint pointer, QPoint corner) {
            QTest::newRow(name) << screens << anchor << pointer << corner;
        };
        const QRect none;
        row("centred below", {topBar}, {600, 2, 22, 22}, nowhere, {441, 28});
        row("odd widths lean right", {topBar}, {600, 2, 21, 22}, nowhere, {441, 28});
        row("below the bar too", {topBar}, {600, 0, 22, 12}, nowhere, {441, 26});
        row("clamped at the right", {topBar}, {1250, 2, 22, 22}, nowhere, {940, 28});
        row("last place before the right edge", {topBar}, {1099, 2, 22, 22}, nowhere, {940, 28});
        row("clamped at the left", {topBar}, {4, 2, 22, 22}, nowhere, {0, 28});
        row("above a bar at the bottom", {bottomBar}, {600, 874, 22, 22}, nowhere, {441, 630});
        row("just fits below", {bottomBar}, {600, 604, 22, 22}, nowhere, {441, 630});
        row("just does not fit below", {bottomBar}, {600, 605, 22, 22}, nowhere, {441, 361});
        row("beside a bar at the left", {leftBar}, {10, 300, 40, 40}, nowhere, {60, 344});
        row("bottom of a bar at the left", {leftBar}, {10, 850, 40, 40}, nowhere, {60, 606});
        row("second screen", {topBar, rightScreen}, {3000, 1050, 22, 22}, nowhere, {2841, 800});
        row("second screen, clamped", {topBar, rightScreen}, {1290, 1050, 22, 22}, nowhere,
            {1280, 800});
        row("screen with negative coordinates", {topBar, leftScreen}, {-30, 101, 22, 22}, nowhere,
            {-340, 127});
        row("clamped at the left of negative coordinates", {topBar, leftScreen},
            {-1020, 101, 22, 22}, nowhere, {-1024, 127});
        row("clamped at the first screen's left, not into its neighbour", {topBar, leftScreen},
            {4, 2, 22, 22}, nowhere, {0, 28});
        row("screen above, over its bar at the bottom", {topBar, upperScreen}, {600, -26, 22, 22},
            nowhere, {441, -270});
        row("screen above, not below its edge", {topBar, upperScreen}, {600, -295, 22, 22}, nowhere,
            {441, -539});
        row("first screen, not up into the one above", {topBar, upperScreen}, {600, 2, 22, 22},
            nowhere, {441, 28});
        row("dense screen left and above", {topBar, denseScreen}, {-2000, -2158, 22, 22}, nowhere,
            {-2260, -2132});
        row("between screens that leave a hole", {topBar, denseScreen}, {-1000, -500, 22, 22},
            {700, 13}, {531, 26});
        row("anchor before pointer", {topBar, rightScreen}, {600, 2, 22, 22}, {2000, 500},
            {441, 28});
        row("pointer without an anchor", {topBar}, none, {700, 13}, {531, 26});
        row("pointer at a bar at the bottom", {bottomBar}, none, {700, 885}, {531, 630});
        row("pointer on the second screen", {topBar, rightScreen}, none, {2000, 500}, {1831, 505});
        row("anchor on no screen, pointer on one", {topBar}, {9000, 2, 22, 22}, {700, 13},
            {531, 26});
        row("neither on a screen", {topBar, rightScreen}, none, nowhere, {940, 26});
        row("panel larger than the screen", {tiny}, {300, 2, 16, 16}, nowhere, {0, 20});
        row("no screen at all", {}, {600, 2, 22, 22}, {700, 13}, {0, 0});
    }

    void panelHangsWhereItShould()
    {
        QFETCH(QList<ScreenArea>, screens);
        QFETCH(QRect, anchor);
        QFETCH(QPoint, pointer);
        QFETCH(QPoint, corner);
        QCOMPARE(PanelPlacement::topLeft(panel, anchor, pointer, screens), corner);
    }

    void roomIsThatOfTheScreenThePanelHangsOn()
    {
        const QList<ScreenArea> both{topBar, rightScreen};
        const QRect anchor(3000, 1050, 22, 22);
        QCOMPARE(PanelPlacement::available(anchor, {700, 13}, both), rightScreen.available);
        QCOMPARE(PanelPlacement::available({}, {700, 13}, both), topBar.available);
        QCOMPARE(PanelPlacement::available({}, nowhere, both), topBar.available);
        QCOMPARE(PanelPlacement::available(anchor, {700, 13}, {}), QRect());
    }

    void leastHeightIsThatOfTheLowestScreen()
    {
        QCOMPARE(PanelPlacement::leastHeight({topBar, leftScreen, rightScreen}), 744);
        QCOMPARE(PanelPlacement::leastHeight({topBar}), 874);
        QCOMPARE(PanelPlacement::leastHeight({}), 0);
    }

    void panelIsAlwaysInsideWhatIsFree()
    {
        for (const ScreenArea &screen :
             {topBar, bottomBar, leftBar, rightScreen, leftScreen, upperScreen, denseScreen}) {
            const QRect area = screen.geometry;
            for (int x = area.left(); x <= area.right(); x += 37) {
                for (int y = area.top(); y <= area.bottom(); y += 29) {
                    const QRect placed(
                        PanelPlacement::topLeft(panel, {x, y, 1, 1}, nowhere, {screen}), panel);
                    QVERIFY(screen.available.contains(placed));
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(PanelPlacementTest)
#include "PanelPlacementTest.moc"
