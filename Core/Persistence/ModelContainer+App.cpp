#include "Core/Persistence/ModelContainer+App.h"
#include "Models/Cafe.h"
#include "Models/CheckIn.h"

namespace quorvel::AppModelContainer {

namespace {

using namespace Qt::StringLiterals;

constexpr SchemaVersion schemaVersion{1, 0, 0};

Schema schema()
{
    return {.version = schemaVersion, .entities = {&Cafe::entity(), &CheckIn::entity()}};
}

/// Creates the folder too. A second start finds it.
QString storeURL(const FileManager &fileManager)
{
    const QString support =
        fileManager.url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes);
    const QString folder = support + u"/Quorvel"_s;
    fileManager.createPrivateDirectory(folder);
    return folder + u"/Quorvel.store"_s;
}

} // namespace

std::unique_ptr<ModelContainer> make(InMemory inMemory, const FileManager &fileManager)
{
    StoreConfiguration configuration;
    if (inMemory == InMemory::No)
        configuration.path = storeURL(fileManager);
    return std::make_unique<ModelContainer>(schema(), configuration);
}

} // namespace quorvel::AppModelContainer
