#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/MenuBar/MenuBarRoles.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Platform/SystemEvents/FakeSystemEvents.h"
#include "Platform/SystemSettings/FakeSystemSettings.h"
#include "Services/Wifi/FakeSystemWifiPasswordReader.h"
#include "Tests/Features/MenuBar/LoopWorld.h"

namespace quorvel::tests {

/// Everything that the panel asks, as fakes, for tests of its screens. Outlives the panel.
struct PanelWorld
{
    enum class Store { Absent, Present };

    [[nodiscard]] MenuBarRoles roles(Store store = Store::Present)
    {
        return {.checkInRepository = store == Store::Present ? &repository : nullptr,
                .loop = {.location = loop.location,
                         .places = loop.places,
                         .weather = loop.weather,
                         .wifi = loop.wifi,
                         .keychain = loop.keychain},
                .systemPasswords = systemPasswords,
                .pasteboard = pasteboard,
                .systemSettings = systemSettings,
                .systemEvents = systemEvents,
                .clock = loop.clock};
    }

    /// The loop finds these, and the Wi-Fi block hears nothing until it is let.
    void willFind(const std::vector<PlaceCandidate> &cafes,
                  const WeatherSnapshot &weather = LoopWorld::sun())
    {
        loop.willLocate();
        loop.places.calls.willSucceed(cafes);
        loop.weather.calls.willSucceed(weather);
    }
    void willHear(const QList<WifiNetwork> &networks) { loop.wifi.scans.willSucceed(networks); }
    void isOn(const QString &ssid, qint64 rssiDBm)
    {
        loop.wifi.ssid = ssid;
        loop.wifi.signal = WifiSignal(rssiDBm);
    }

    LoopWorld loop;
    FakeCheckInRepository repository;
    FakeSystemWifiPasswordReader systemPasswords;
    FakePasteboard pasteboard;
    FakeSystemSettings systemSettings;
    FakeSystemEvents systemEvents;
};

} // namespace quorvel::tests
