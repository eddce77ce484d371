#include "Tests/Gallery/States/GalleryStates.h"

#include "Core/Support/AppError.h"

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

void locating(GalleryStage &stage)
{
    stage.world().loop.location.holdAuthorization();
    stage.openPanel();
}

void denied(GalleryStage &stage)
{
    stage.world().loop.location.authorize(AuthorizationStatus::Denied);
    stage.openPanel();
}

void deniedWithoutSettings(GalleryStage &stage)
{
    denied(stage);
    stage.world().systemSettings.canOpen = false;
    stage.showContent();
    stage.press(u"Open System Settings"_s);
}

void failed(GalleryStage &stage)
{
    stage.show(
        u"MenuBar"_s, u"DeniedView"_s,
        {{u"message"_s, AppError::network(u"The network is unreachable"_s).errorDescription()},
         {u"canOpenSettings"_s, false},
         {u"lacksSettings"_s, false}});
}

} // namespace

QList<GalleryState> GalleryStates::all()
{
    return ofPanel() + ofLocatedView() + ofPicker() + ofWifi() + ofHistory() + ofProbe() +
           QList<GalleryState>{{u"DesignSystem/sheet"_s, [](auto &stage) { stage.showSheet(); }}};
}

QList<GalleryState> GalleryStates::ofPanel()
{
    return {
        {u"MenuBarRootView/locating"_s,
         [](auto &stage) {
             locating(stage);
             stage.showPanel();
         }},
        {u"MenuBarRootView/denied"_s,
         [](auto &stage) {
             denied(stage);
             stage.showPanel();
         }},
        {u"LocatingView/locating"_s,
         [](auto &stage) {
             locating(stage);
             stage.showContent();
         }},
        {u"DeniedView/denied"_s,
         [](auto &stage) {
             denied(stage);
             stage.showContent();
         }},
        {u"DeniedView/no-settings-program"_s, deniedWithoutSettings},
        {u"DeniedView/other-error"_s, failed},
    };
}

} // namespace quorvel::tests
