#include "Platform/ObjectStore/ModelContainer.h"

#include "Platform/ObjectStore/StoreConnection.h"

namespace quorvel {

ModelContainer::ModelContainer(const Schema &schema, const StoreConfiguration &configuration)
    : m_connection(std::make_unique<StoreConnection>(schema, configuration))
    , m_mainContext(*m_connection, schema)
{}

ModelContainer::~ModelContainer() = default;

} // namespace quorvel
