#include "Core/DI/AppEnvironment.h"

#include "Core/Persistence/ModelContainer+App.h"
#include "Core/Persistence/SwiftDataCheckInRepository.h"

#include <QString>

#include <exception>
#include <utility>

namespace quorvel {

AppEnvironment::AppEnvironment(const FileManager &fileManager, const Clock &clock)
{
    try {
        setUp(fileManager, clock);
    } catch (const std::exception &error) {
        m_setupError = QString::fromUtf8(error.what());
    }
}

AppEnvironment::~AppEnvironment() = default;

void AppEnvironment::setUp(const FileManager &fileManager, const Clock &clock)
{
    auto container = AppModelContainer::make(InMemory::No, fileManager);
    m_checkInRepository = std::make_unique<SwiftDataCheckInRepository>(
        std::move(container), CheckInPhotoStore(fileManager), clock);
}

} // namespace quorvel
