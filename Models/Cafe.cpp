#include "Models/Cafe.h"

#include "Models/CheckIn.h"
#include "Platform/ObjectStore/ModelContext.h"

#include <QUuid>

#include <memory>
#include <utility>

namespace quorvel {

Cafe::Cafe(QUuid id, QString name, double latitude, double longitude,
           std::optional<QString> lastKnownSSID, std::optional<QString> mapItemIdentifier)
    : m_id(id)
    , m_name(std::move(name))
    , m_latitude(latitude)
    , m_longitude(longitude)
    , m_lastKnownSSID(std::move(lastKnownSSID))
    , m_mapItemIdentifier(std::move(mapItemIdentifier))
{}

const EntityDescription &Cafe::entity()
{
    static const EntityDescription description{
        .name = "Cafe",
        .make = &makeFromStore<Cafe>,
        .attributes = {uniqueAttribute<&Cafe::m_id>("id"), attribute<&Cafe::m_name>("name"),
                       attribute<&Cafe::m_latitude>("latitude"),
                       attribute<&Cafe::m_longitude>("longitude"),
                       attribute<&Cafe::m_lastKnownSSID>("lastKnownSSID"),
                       lookupAttribute<&Cafe::m_mapItemIdentifier>("mapItemIdentifier")},
        .relationships = {},
    };
    return description;
}

std::vector<std::shared_ptr<CheckIn>> Cafe::checkIns() const
{
    if (!context())
        return {};
    return context()->fetchRelated<CheckIn>(CheckIn::cafeRelationship, *this);
}

} // namespace quorvel
