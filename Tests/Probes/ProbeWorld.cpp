#include "Tests/Probes/ProbeWorld.h"

#include "Models/Cafe.h"
#include "Models/CheckIn.h"
#include "Models/WorkRatings.h"
#include "Platform/Location/Location.h"

#include <QUuid>

#include <memory>
#include <optional>

namespace quorvel::tests {

ProbeWorld::ProbeWorld() = default;
ProbeWorld::~ProbeWorld() = default;

ProbeViewModel ProbeWorld::makeViewModel(Store store)
{
    const bool isOpen = store == Store::Present;
    return ProbeViewModel(services(), loop.services(), isOpen ? &repository : nullptr,
                          isOpen ? QString() : setupError, system.facilities, system.pasteboard);
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
