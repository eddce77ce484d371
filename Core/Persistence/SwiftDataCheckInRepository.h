#pragma once

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Core/Persistence/CheckInRepository.h"
#include "Models/Cafe.h"
#include "Platform/Clock/Clock.h"
#include "Platform/ObjectStore/ModelContainer.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// The repository over the object store. It caches nothing: every call asks the store.
class SwiftDataCheckInRepository final : public CheckInRepository
{
public:
    SwiftDataCheckInRepository(std::unique_ptr<ModelContainer> container,
                               const CheckInPhotoStore &photoStore, const Clock &clock);

    void inTurn(const std::function<void()> &action) override { m_container->inTurn(action); }
    [[nodiscard]] std::vector<std::shared_ptr<CheckIn>> allCheckIns() override;
    [[nodiscard]] std::shared_ptr<Cafe> findOrCreateCafe(const PlaceCandidate &from) override;
    [[nodiscard]] bool hasCheckedInToday(const std::optional<QString> &mapItemIdentifier) override;
    void save(const std::shared_ptr<CheckIn> &checkIn) override;

    [[nodiscard]] const CheckInPhotoStore &photoStore() const { return m_photoStore; }

private:
    [[nodiscard]] std::shared_ptr<Cafe> fetchCafe(const QString &mapItemIdentifier);

    std::unique_ptr<ModelContainer> m_container;
    ModelContext &m_context;
    CheckInPhotoStore m_photoStore;
    const Clock &m_clock;
};

} // namespace quorvel
