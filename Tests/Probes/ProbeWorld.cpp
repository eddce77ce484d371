#include "Tests/Probes/ProbeWorld.h"

#include "Platform/Location/FakeLocationManager.h"

namespace quorvel::tests {

ProbeWorld::ProbeWorld() = default;
ProbeWorld::~ProbeWorld() = default;

ProbeRoles ProbeWorld::roles(Store store)
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
            .loop = loop.services(),
            .pasteboard = pasteboard,
            .clock = loop.clock};
}

void ProbeWorld::willLocate(const Location &where)
{
    location.authorize(AuthorizationStatus::AuthorizedAlways);
    location.locate(where);
}

void ProbeWorld::visit(const QString &time, const QString &cafe)
{
    repository.visits.push_back(std::make_shared<CheckIn>(
        QUuid::createUuid(), instant(time), QString(), std::nullopt, std::nullopt, WorkRatings(),
        std::nullopt, std::make_shared<Cafe>(QUuid::createUuid(), cafe, 0, 0, std::nullopt, cafe)));
}

} // namespace quorvel::tests
