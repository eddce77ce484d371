#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/MenuBar/Loop/MenuBarRoles.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Platform/SystemEvents/FakeSystemEvents.h"
#include "Platform/SystemSettings/FakeSystemSettings.h"
#include "Services/Wifi/Passwords/FakeSystemWifiPasswordReader.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"

namespace quorvel::tests {

/// Fakes of everything that the panel uses, for tests of its screens. It outlives the panel.
struct PanelWorld
{
    enum class Store { Absent, Present };

    PanelWorld();
    ~PanelWorld();
    Q_DISABLE_COPY_MOVE(PanelWorld)

    [[nodiscard]] MenuBarRoles roles(Store store = Store::Present);

    /// The loop finds these cafés. The Wi-Fi block hears nothing until a test allows it.
    void willFind(const std::vector<PlaceCandidate> &cafes,
                  const WeatherSnapshot &weather = LoopWorld::sun());
    void willHear(const QList<WifiNetwork> &networks);
    void isOn(const QString &ssid, qint64 rssiDBm);

    LoopWorld loop;
    FakeCheckInRepository repository;
    FakeSystemWifiPasswordReader systemPasswords;
    FakePasteboard pasteboard;
    FakeSystemSettings systemSettings;
    FakeSystemEvents systemEvents;
};

} // namespace quorvel::tests
