#include "Core/Support/AppError.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Gallery/States/GalleryStates.h"

#include <QList>
#include <QString>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

const auto mine = u"Gió Sông 5G"_s;
const auto other = u"Workshop Guest"_s;
/// The widest text of 32 bytes.
const auto widest = u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"_s;
const auto password = u"ca phe sua da 35k"_s;

enum class Joined { No, Yes };
enum class Saved { No, Yes };

void hear(GalleryStage &stage, const QList<WifiNetwork> &networks)
{
    stage.world().willFind(LoopWorld::found());
    stage.world().willHear(networks);
    stage.openPanel();
    stage.showWifi();
}

void hearThree(GalleryStage &stage, Joined joined, Saved saved)
{
    if (joined == Joined::Yes)
        stage.world().isOn(mine, -52);
    if (saved == Saved::Yes)
        stage.world().loop.keychain.passwords.insert(mine, password);
    hear(stage, {{mine, -52}, {other, -67}, {u"Sân Trong"_s, -88}});
}

void scanning(GalleryStage &stage)
{
    stage.world().willFind(LoopWorld::found());
    stage.world().loop.wifi.scans.willHold();
    stage.openPanel();
    stage.showWifi();
}

void revealed(GalleryStage &stage)
{
    hearThree(stage, Joined::Yes, Saved::Yes);
    stage.wifi().toggleRevealStoredPassword(mine);
}

void copied(GalleryStage &stage)
{
    hearThree(stage, Joined::Yes, Saved::Yes);
    stage.wifi().copyStoredPassword(mine);
}

void typed(GalleryStage &stage)
{
    hearThree(stage, Joined::Yes, Saved::No);
    stage.wifi().setConnectPasswordDraft(password);
    stage.wifi().toggleRevealConnectPassword();
}

void joining(GalleryStage &stage)
{
    hearThree(stage, Joined::No, Saved::No);
    stage.wifi().toggle(other);
    stage.wifi().setConnectPasswordDraft(password);
    stage.wifi().submit();
    LoopWorld::settle();
}

void connecting(GalleryStage &stage)
{
    stage.world().loop.wifi.joins.willHold();
    joining(stage);
}

void joinFailed(GalleryStage &stage)
{
    stage.world().loop.wifi.joins.willFail(AppError::network(u"refused"_s));
    joining(stage);
}

void otherOpen(GalleryStage &stage)
{
    hearThree(stage, Joined::Yes, Saved::Yes);
    stage.wifi().toggleOther();
    stage.wifi().setManualSSIDDraft(u"Ẩn danh"_s);
}

void wideName(GalleryStage &stage)
{
    stage.world().isOn(widest, -52);
    stage.world().loop.keychain.passwords.insert(widest, widest + widest);
    hear(stage, {{widest, -52}, {other, -67}});
    stage.wifi().toggleRevealStoredPassword(widest);
}

void wideNameOpen(GalleryStage &stage)
{
    stage.world().isOn(widest, -52);
    hear(stage, {{widest, -52}});
}

} // namespace

QList<GalleryState> GalleryStates::ofWifi()
{
    return {
        {u"WifiPasswordField/scanning"_s, scanning},
        {u"WifiPasswordField/none-open"_s,
         [](auto &stage) { hearThree(stage, Joined::No, Saved::Yes); }},
        {u"WifiPasswordField/current-open"_s,
         [](auto &stage) { hearThree(stage, Joined::Yes, Saved::No); }},
        {u"WifiPasswordField/typed"_s, typed},
        {u"WifiPasswordField/saved-hidden"_s,
         [](auto &stage) { hearThree(stage, Joined::Yes, Saved::Yes); }},
        {u"WifiPasswordField/saved-revealed"_s, revealed},
        {u"WifiPasswordField/saved-copied"_s, copied},
        {u"WifiPasswordField/connecting"_s, connecting},
        {u"WifiPasswordField/join-failed"_s, joinFailed},
        {u"WifiPasswordField/other-open"_s, otherOpen},
        {u"WifiPasswordField/unavailable"_s, [](auto &stage) { hear(stage, {}); }},
        {u"WifiPasswordField/wide-name-saved"_s, wideName},
        {u"WifiPasswordField/wide-name-open"_s, wideNameOpen},
    };
}

} // namespace quorvel::tests
