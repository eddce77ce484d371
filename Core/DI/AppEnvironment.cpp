#include "Core/DI/AppEnvironment.h"

#include "Core/Persistence/ModelContainer+App.h"
#include "Core/Persistence/SwiftDataCheckInRepository.h"

#include <exception>

namespace quorvel {

AppEnvironment::AppEnvironment(const FileManager &fileManager)
{
    try {
        setUp(fileManager);
    } catch (const std::exception &error) {
        m_setupError = QString::fromUtf8(error.what());
    }
}

AppEnvironment::~AppEnvironment() = default;

void AppEnvironment::setUp(const FileManager &fileManager)
{
    auto container = AppModelContainer::make(InMemory::No, fileManager);
    m_checkInRepository = std::make_unique<SwiftDataCheckInRepository>(
        std::move(container), CheckInPhotoStore(fileManager));
}

} // namespace quorvel
