#include "Core/Support/AppError.h"
#include "Platform/Location/Location.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Gallery/States/GalleryStates.h"

#include <QList>
#include <QString>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

constexpr Location seat{
    .latitude = 10.7769, .longitude = 106.70091, .accuracyMeters = 19.6, .timestamp = {}};

void showOnNetwork(GalleryStage &stage)
{
    stage.probeWorld().wifi.ssid = u"Gió Sông 5G"_s;
    stage.probeWorld().loop.wifi.ssid = u"Gió Sông 5G"_s;
    stage.showProbe();
}

void askForEverything(GalleryStage &stage)
{
    auto &world = stage.probeWorld();
    world.willLocate(seat);
    stage.press(u"Locate"_s);
    world.places.calls.willSucceed(
        {LoopWorld::cafe(u"Cà phê Gió Sông"_s, 12), LoopWorld::cafe(u"The Workshop"_s, 96)});
    stage.press(u"Search cafés"_s);
    world.visit(u"2026-11-20T10:40:00Z"_s, u"The Workshop"_s);
    world.visit(u"2026-11-21T14:05:00Z"_s,
                u"Tiệm Cà Phê Sách Những Ngày Mưa Phùn Trên Phố Nguyễn Hữu Cầu – Thảo Điền"_s);
    stage.press(u"Read check-ins"_s);
    stage.press(u"Copy log"_s);
}

void idle(GalleryStage &stage)
{
    stage.showProbe();
}

void found(GalleryStage &stage)
{
    showOnNetwork(stage);
    stage.probeWorld().loop.willFindAll();
    stage.press(u"Run"_s);
    askForEverything(stage);
}

void underWay(GalleryStage &stage)
{
    showOnNetwork(stage);
    stage.probeWorld().loop.location.holdAuthorization();
    stage.press(u"Run"_s);
    stage.probeWorld().location.holdAuthorization();
    stage.press(u"Locate"_s);
}

void loopFailed(GalleryStage &stage)
{
    stage.showProbe();
    auto &world = stage.probeWorld();
    world.loop.location.authorize(AuthorizationStatus::Denied);
    stage.press(u"Run"_s);
    world.location.authorize(AuthorizationStatus::Denied);
    world.location.refuseLocation(AppError::locationDenied());
    stage.press(u"Locate"_s);
    stage.press(u"Search cafés"_s);
    world.repository.failing = {u"allCheckIns"_s};
    world.repository.failure =
        u"The file could not be read, since the disk that holds /home/quỳnh/.local/share does "
        "not answer; check its cable and try again"_s;
    stage.press(u"Read check-ins"_s);
}

void degraded(GalleryStage &stage)
{
    stage.showProbe();
    auto &world = stage.probeWorld().loop;
    world.willAuthorize();
    world.location.refuseLocation(AppError::locationFailed(u"no signal"_s));
    stage.press(u"Run"_s);
}

} // namespace

QList<GalleryState> GalleryStates::ofProbe()
{
    return {{u"ProbeView/idle"_s, idle},
            {u"ProbeView/under-way"_s, underWay},
            {u"ProbeView/found"_s, found},
            {u"ProbeView/degraded"_s, degraded},
            {u"ProbeView/failed"_s, loopFailed}};
}

} // namespace quorvel::tests
