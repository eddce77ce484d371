#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/MenuBar/Panel/Window/MenuBarScene.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <vector>

namespace quorvel::tests {

/// Fakes of everything that the panel uses, for tests of its screens. It outlives the panel.
struct PanelWorld : QuietFacilities
{
    enum class Store { Absent, Present };

    PanelWorld();
    ~PanelWorld();

    /// What the panel shows, over this world.
    [[nodiscard]] MenuBarScene makeScene(Store store = Store::Present);

    /// The loop finds these cafés. The Wi-Fi block hears nothing until a test allows it.
    void willFind(const std::vector<PlaceCandidate> &cafes,
                  const WeatherSnapshot &weather = LoopWorld::sun());
    void willHear(const QList<WifiNetwork> &networks);
    void isOn(const QString &ssid, qint64 rssiDBm);

    LoopWorld loop;
    FakeCheckInRepository repository;
};

} // namespace quorvel::tests
