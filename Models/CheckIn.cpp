#include "Models/CheckIn.h"

#include "Platform/ObjectStore/Schema/EntityDescription.h"

#include <QUuid>

#include <memory>
#include <optional>
#include <utility>

namespace quorvel {

CheckIn::CheckIn(QUuid id, Instant date, QString note, std::optional<QString> address,
                 std::optional<QString> photoFilename, WorkRatings ratings,
                 std::optional<WeatherSnapshot> weather, std::shared_ptr<Cafe> cafe)
    : m_id(id)
    , m_date(date)
    , m_note(std::move(note))
    , m_address(std::move(address))
    , m_photoFilename(std::move(photoFilename))
    , m_ratings(ratings)
    , m_weather(weather)
    , m_cafe(std::move(cafe))
{}

const EntityDescription &CheckIn::entity()
{
    static const EntityDescription description{
        .name = "CheckIn",
        .make = &makeFromStore<CheckIn>,
        .attributes = {uniqueAttribute<&CheckIn::m_id>("id"), attribute<&CheckIn::m_date>("date"),
                       attribute<&CheckIn::m_note>("note"),
                       repeatedAttribute<&CheckIn::m_address>("address"),
                       attribute<&CheckIn::m_photoFilename>("photoFilename"),
                       compositeAttribute<&CheckIn::m_ratings>(),
                       optionalCompositeAttribute<&CheckIn::m_weather>()},
        .relationships = {toOne<&CheckIn::m_cafe>(cafeRelationship, DeleteRule::Cascade)},
    };
    return description;
}

} // namespace quorvel
