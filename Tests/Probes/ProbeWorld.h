#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Platform/Location/FakeLocationManager.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Tests/Features/MenuBar/LoopWorld.h"
#include "_Probes/ProbeRoles.h"

namespace quorvel::tests {

/// Everything that the diagnostics ask, as fakes. Outlives them.
struct ProbeWorld
{
    enum class Store { Absent, Present };

    [[nodiscard]] ProbeRoles roles(Store store = Store::Present)
    {
        return {.makeLocationManager =
                    [this] {
                        auto manager = std::make_unique<FakeLocationManager>();
                        manager->status = status;
                        return manager;
                    },
                .locationService = location,
                .wifiService = wifi,
                .placesService = places,
                .repository = store == Store::Present ? &repository : nullptr,
                .setupError = store == Store::Present ? QString() : setupError,
                .loop = {.location = loop.location,
                         .places = loop.places,
                         .weather = loop.weather,
                         .wifi = loop.wifi,
                         .keychain = loop.keychain},
                .pasteboard = pasteboard,
                .clock = loop.clock};
    }

    void willLocate(const Location &where)
    {
        location.authorize(AuthorizationStatus::AuthorizedAlways);
        location.locate(where);
    }
    void visit(const QString &time, const QString &cafe)
    {
        repository.visits.push_back(std::make_shared<CheckIn>(
            QUuid::createUuid(), instant(time), QString(), std::nullopt, std::nullopt,
            WorkRatings(), std::nullopt,
            std::make_shared<Cafe>(QUuid::createUuid(), cafe, 0, 0, std::nullopt, cafe)));
    }

    AuthorizationStatus status = AuthorizationStatus::NotDetermined;
    FakeLocationService location;
    FakeWifiService wifi;
    FakePlacesService places;
    FakeCheckInRepository repository;
    QString setupError;
    FakePasteboard pasteboard;
    LoopWorld loop;
};

} // namespace quorvel::tests
