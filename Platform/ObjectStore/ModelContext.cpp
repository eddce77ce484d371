#include "Platform/ObjectStore/ModelContext.h"

#include "Platform/ObjectStore/Schema/RelationshipDescription.h"
#include "Platform/ObjectStore/Sql/EntitySql.h"
#include "Platform/ObjectStore/Sql/RowReader.h"
#include "Platform/ObjectStore/Sql/StoreConnection.h"
#include "Platform/ObjectStore/StoreError.h"

#include <QScopeGuard>
#include <QVarLengthArray>
#include <SQLiteCpp/Column.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace quorvel {

namespace {

/// The rows that an object points to, one per relationship; 0 for none.
using RelatedRows = QVarLengthArray<qint64, 2>;

RelatedRows readAttributes(PersistentObject &object, const EntityDescription &entity,
                           const RowReader &row)
{
    int column = 1;
    for (const auto &attribute : entity.attributes) {
        attribute.read(object, row, column);
        column += int(attribute.columns.size());
    }
    RelatedRows related;
    for (size_t i = 0; i < entity.relationships.size(); ++i, ++column)
        related.append(row.isNull(column) ? 0 : row.integer(column));
    return related;
}

bool matchesAll(const PersistentObject &object, const FetchRequest &request)
{
    return std::ranges::all_of(request.conditions,
                               [&](const auto &condition) { return condition.matches(object); });
}

} // namespace

ModelContext::ModelContext(StoreConnection &connection, const Schema &schema)
    : m_connection(connection)
    , m_version(connection.externalVersion())
{
    for (const EntityDescription *entity : schema.entities) {
        m_tables.push_back(
            std::make_unique<EntityTable>(EntityTable{.context = this,
                                                      .entity = entity,
                                                      .insertSql = EntitySql::insert(*entity),
                                                      .selectRowSql = EntitySql::selectRow(*entity),
                                                      .rows = {}}));
    }
}

ModelContext::~ModelContext()
{
    for (const auto &object : m_inserted)
        detach(*object);
    for (const auto &table : m_tables) {
        for (const auto &object : table->rows.objects())
            detach(*object);
    }
}

void ModelContext::insert(const std::shared_ptr<PersistentObject> &object)
{
    Q_ASSERT(!object->context() || object->context() == this);
    if (object->m_state != PersistentObject::State::Detached)
        return;
    object->m_table = &tableOf(object->entityDescription());
    object->m_state = PersistentObject::State::Pending;
    m_inserted.push_back(object);
    insertDestinations(*object);
}

void ModelContext::remove(const std::shared_ptr<PersistentObject> &object)
{
    if (object->context() != this || object->m_deletionPending)
        return;
    object->m_deletionPending = true;
    auto forget = qScopeGuard([&] { object->m_deletionPending = false; });
    releaseReferences(*object);
    forget.dismiss();
    if (object->isStored()) {
        m_deleted.push_back(object);
    } else {
        std::erase(m_inserted, object);
        detach(*object);
    }
}

void ModelContext::releaseReferences(const PersistentObject &object)
{
    for (const auto &table : m_tables) {
        for (const auto &relationship : table->entity->relationships) {
            if (&relationship.destination() != &object.entityDescription())
                continue;
            for (const auto &referrer : relatedObjects(*table->entity, relationship.name, object)) {
                if (relationship.whenDestinationIsDeleted == DeleteRule::Cascade) {
                    remove(referrer);
                } else {
                    relationship.set(*referrer, nullptr);
                    referrer->didChange();
                }
            }
        }
    }
}

bool ModelContext::hasChanges() const
{
    return !m_inserted.empty() || !m_changed.empty() || !m_deleted.empty();
}

ModelContext::Objects ModelContext::fetchObjects(const EntityDescription &entity,
                                                 const FetchRequest &request)
{
    EntityTable &table = tableOf(entity);
    Objects result;
    try {
        m_version = m_connection.externalVersion();
        result = storedMatches(table, request);
    } catch (const SQLite::Exception &exception) {
        throw storeErrorFor(exception);
    }
    mergeUnsavedMatches(table, request, result);
    if (request.limit && result.size() > size_t(*request.limit))
        result.resize(size_t(*request.limit));
    notifyRefreshed();
    return result;
}

ModelContext::Objects ModelContext::storedMatches(EntityTable &table, const FetchRequest &request)
{
    const StatementUse query(m_connection.statement(EntitySql::select(*table.entity, request)));
    ParameterWriter parameters(*query);
    int index = 1;
    for (const auto &condition : request.conditions)
        condition.bind(parameters, index++);
    // Unsaved changes and deletions may remove objects from the result.
    if (request.limit)
        parameters.integer(index, *request.limit + qint64(m_changed.size() + m_deleted.size()));

    Objects result;
    const RowReader row(*query);
    while (query->executeStep()) {
        auto object = objectForRow(table, row);
        if (!object->m_changed && !object->m_deletionPending)
            result.push_back(std::move(object));
    }
    return result;
}

void ModelContext::mergeUnsavedMatches(const EntityTable &table, const FetchRequest &request,
                                       Objects &result) const
{
    const size_t storedCount = result.size();
    for (const Objects *unsaved : {&m_changed, &m_inserted}) {
        for (const auto &object : *unsaved) {
            if (object->m_table == &table && !object->m_deletionPending &&
                matchesAll(*object, request))
                result.push_back(object);
        }
    }
    if (result.size() == storedCount)
        return;
    std::ranges::stable_sort(result, {}, [](const auto &object) {
        return object->isStored() ? object->m_row : std::numeric_limits<qint64>::max();
    });
}

ModelContext::Objects ModelContext::relatedObjects(const EntityDescription &entity,
                                                   const QByteArray &relationship,
                                                   const PersistentObject &destination)
{
    const auto description =
        std::ranges::find(entity.relationships, relationship, &RelationshipDescription::name);
    Q_ASSERT(description != entity.relationships.end());
    FetchRequest request;
    request.conditions.push_back(
        {relationship,
         [row = destination.m_row](ParameterWriter &writer, int index) {
             writer.integer(index, row);
         },
         [get = description->get, &destination](const PersistentObject &object) {
             return get(object) == &destination;
         }});
    return fetchObjects(entity, request);
}

std::shared_ptr<PersistentObject> ModelContext::objectForRow(EntityTable &table,
                                                             const RowReader &row)
{
    const qint64 id = row.integer(0);
    if (auto known = table.rows.find(id)) {
        if (!known->m_changed && known->m_readAtVersion != m_version) {
            const RelatedRows related = readAttributes(*known, *table.entity, row);
            resolveRelationships(*known, related.constData());
            known->m_readAtVersion = m_version;
            m_refreshed.push_back(known);
        }
        return known;
    }
    auto object = table.entity->make();
    const RelatedRows related = readAttributes(*object, *table.entity, row);
    adopt(object, table, id);
    resolveRelationships(*object, related.constData());
    return object;
}

std::shared_ptr<PersistentObject> ModelContext::objectWithId(EntityTable &table, qint64 id)
{
    if (auto known = table.rows.find(id))
        return known;
    std::shared_ptr<PersistentObject> object;
    RelatedRows related;
    {
        // Order: release the statement before the row's relationships need it.
        const StatementUse query(m_connection.statement(table.selectRowSql));
        ParameterWriter(*query).integer(1, id);
        if (!query->executeStep())
            return nullptr;
        object = table.entity->make();
        related = readAttributes(*object, *table.entity, RowReader(*query));
        adopt(object, table, id);
    }
    resolveRelationships(*object, related.constData());
    return object;
}

void ModelContext::resolveRelationships(PersistentObject &object, const qint64 *relatedRows)
{
    for (const auto &relationship : object.m_table->entity->relationships) {
        const qint64 row = *relatedRows++;
        relationship.set(object, row == 0 ? nullptr
                                          : objectWithId(tableOf(relationship.destination()), row));
    }
}

void ModelContext::adopt(const std::shared_ptr<PersistentObject> &object, EntityTable &table,
                         qint64 row)
{
    object->m_table = &table;
    object->m_row = row;
    object->m_state = PersistentObject::State::Stored;
    object->m_readAtVersion = m_version;
    table.rows.insert(row, object);
}

void ModelContext::detach(PersistentObject &object)
{
    object.m_table = nullptr;
    object.m_row = 0;
    object.m_state = PersistentObject::State::Detached;
    object.m_changed = false;
    object.m_deletionPending = false;
}

EntityTable &ModelContext::tableOf(const EntityDescription &entity)
{
    const auto table = std::ranges::find(m_tables, &entity, &EntityTable::entity);
    Q_ASSERT(table != m_tables.end());
    return **table;
}

void ModelContext::keepChanged(const PersistentObject &object)
{
    m_changed.push_back(object.m_table->rows.find(object.m_row));
}

void ModelContext::notifyRefreshed()
{
    for (const auto &object : std::exchange(m_refreshed, {}))
        object->notify();
}

} // namespace quorvel
