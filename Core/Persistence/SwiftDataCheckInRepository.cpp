#include "Core/Persistence/SwiftDataCheckInRepository.h"

#include "Models/Cafe.h"
#include "Platform/ObjectStore/FetchDescriptor.h"

#include <QUuid>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel {

SwiftDataCheckInRepository::SwiftDataCheckInRepository(std::unique_ptr<ModelContainer> container,
                                                       const CheckInPhotoStore &photoStore,
                                                       const Clock &clock)
    : m_container(std::move(container))
    , m_context(m_container->mainContext())
    , m_photoStore(photoStore)
    , m_clock(clock)
{}

std::vector<std::shared_ptr<CheckIn>> SwiftDataCheckInRepository::allCheckIns()
{
    auto checkIns = m_context.fetch<CheckIn>();
    std::ranges::stable_sort(checkIns, std::ranges::greater(), &CheckIn::date);
    return checkIns;
}

std::shared_ptr<Cafe> SwiftDataCheckInRepository::findOrCreateCafe(const PlaceCandidate &from)
{
    if (from.mapItemIdentifier) {
        if (auto known = fetchCafe(*from.mapItemIdentifier))
            return known;
    }
    auto cafe = std::make_shared<Cafe>(QUuid::createUuid(), from.name, from.latitude,
                                       from.longitude, std::nullopt, from.mapItemIdentifier);
    m_context.insert(cafe);
    m_context.save();
    return cafe;
}

bool SwiftDataCheckInRepository::hasCheckedInToday(const std::optional<QString> &mapItemIdentifier)
{
    if (!mapItemIdentifier)
        return false;
    const auto cafe = fetchCafe(*mapItemIdentifier);
    if (!cafe)
        return false;
    const DateInterval today = m_clock.calendar().day(m_clock.now());
    return std::ranges::any_of(
        cafe->checkIns(), [&](const auto &checkIn) { return today.contains(checkIn->date()); });
}

void SwiftDataCheckInRepository::save(const std::shared_ptr<CheckIn> &checkIn)
{
    m_context.insert(checkIn);
    m_context.save();
}

std::shared_ptr<Cafe> SwiftDataCheckInRepository::fetchCafe(const QString &mapItemIdentifier)
{
    const auto descriptor = FetchDescriptor<Cafe>()
                                .whereEqual(Cafe::Keys::mapItemIdentifier, mapItemIdentifier)
                                .limit(1);
    const auto cafes = m_context.fetch(descriptor);
    return cafes.empty() ? nullptr : cafes.front();
}

} // namespace quorvel
