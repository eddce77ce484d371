#include "Platform/ObjectStore/ModelContainer.h"

#include "Platform/ObjectStore/Sql/StoreConnection.h"
#include "Platform/ObjectStore/Sql/StoreTurn.h"

#include <optional>

namespace quorvel {

ModelContainer::ModelContainer(const Schema &schema, const StoreConfiguration &configuration)
    : m_configuration(configuration)
    , m_connection(std::make_unique<StoreConnection>(schema, configuration))
    , m_mainContext(*m_connection, schema)
{}

ModelContainer::~ModelContainer() = default;

void ModelContainer::inTurn(const std::function<void()> &action)
{
    std::optional<StoreTurn> turn;
    if (m_configuration.path)
        turn.emplace(*m_configuration.path);
    action();
}

} // namespace quorvel
