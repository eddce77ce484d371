#pragma once

#include "Core/DI/Services.h"
#include "Core/Keychain/FakeKeychainStore.h"
#include "Services/Location/FakeLocationService.h"
#include "Services/Places/FakePlacesService.h"
#include "Services/Weather/FakeWeatherService.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Services/Wifi/Passwords/FakeSystemWifiPasswordReader.h"

namespace quorvel::tests {

/// The services of one daily loop, as fakes. Outlives whoever asks them.
struct FakeServices
{
    FakeServices() = default;
    Q_DISABLE_COPY_MOVE(FakeServices)

    [[nodiscard]] Services services()
    {
        return {.location = location,
                .places = places,
                .weather = weather,
                .wifi = wifi,
                .systemPasswords = systemPasswords,
                .keychain = keychain};
    }

    FakeLocationService location;
    FakePlacesService places;
    FakeWeatherService weather;
    FakeWifiService wifi;
    FakeSystemWifiPasswordReader systemPasswords;
    FakeKeychainStore keychain;
};

} // namespace quorvel::tests
