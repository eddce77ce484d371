#include "Platform/ObjectStore/ModelContext.h"
#include "Platform/ObjectStore/Sql/EntitySql.h"
#include "Platform/ObjectStore/Sql/StoreConnection.h"
#include "Platform/ObjectStore/StoreError.h"

#include <SQLiteCpp/Transaction.h>

#include <utility>

namespace quorvel {

void ModelContext::save()
{
    if (!hasChanges())
        return;
    for (const auto &object : m_changed)
        insertDestinations(*object);
    // The list grows during the loop.
    for (size_t i = 0; i < m_inserted.size(); ++i)
        insertDestinations(*m_inserted[i]);
    AssignedRows assigned;
    try {
        SQLite::Transaction transaction(m_connection.database(),
                                        SQLite::TransactionBehavior::IMMEDIATE);
        for (const auto &object : m_inserted)
            insertRow(*object, assigned);
        for (const auto &object : m_changed)
            updateRow(*object, assigned);
        for (const auto &object : m_deleted)
            deleteRow(*object);
        transaction.commit();
    } catch (const SQLite::Exception &exception) {
        throw storeErrorFor(exception);
    }
    didSave(assigned);
}

/// Storing an object stores the objects that it points to.
void ModelContext::insertDestinations(const PersistentObject &object)
{
    for (const auto &relationship : object.entityDescription().relationships) {
        if (const auto destination = relationship.getShared(object))
            insert(destination);
    }
}

qint64 ModelContext::insertRow(const PersistentObject &object, AssignedRows &assigned)
{
    if (const qint64 row = assigned.value(&object))
        return row;
    // Order: the object's targets need their rows first.
    for (const auto &relationship : object.entityDescription().relationships) {
        const PersistentObject *destination = relationship.get(object);
        if (destination && destination->isPending())
            insertRow(*destination, assigned);
    }
    const StatementUse use(m_connection.statement(object.m_table->insertSql));
    bindColumns(*use, object, assigned);
    use->exec();
    const qint64 row = m_connection.database().getLastInsertRowid();
    assigned.insert(&object, row);
    return row;
}

void ModelContext::updateRow(const PersistentObject &object, const AssignedRows &assigned)
{
    if (object.m_deletionPending)
        return;
    const StatementUse use(m_connection.statement(EntitySql::update(object.entityDescription())));
    const int index = bindColumns(*use, object, assigned);
    use->bind(index, int64_t(object.m_row));
    use->exec();
}

void ModelContext::deleteRow(const PersistentObject &object)
{
    const StatementUse use(m_connection.statement(EntitySql::remove(object.entityDescription())));
    use->bind(1, int64_t(object.m_row));
    use->exec();
}

int ModelContext::bindColumns(SQLite::Statement &statement, const PersistentObject &object,
                              const AssignedRows &assigned)
{
    ParameterWriter writer(statement);
    int index = 1;
    for (const auto &attribute : object.entityDescription().attributes) {
        attribute.write(object, writer, index);
        index += int(attribute.columns.size());
    }
    for (const auto &relationship : object.entityDescription().relationships) {
        const PersistentObject *destination = relationship.get(object);
        if (destination)
            writer.integer(index++, assigned.value(destination, destination->m_row));
        else
            writer.null(index++);
    }
    return index;
}

void ModelContext::didSave(const AssignedRows &assigned)
{
    // Lifetime: the lists may hold the last references to these objects.
    const Objects inserted = std::exchange(m_inserted, {});
    const Objects changed = std::exchange(m_changed, {});
    const Objects deleted = std::exchange(m_deleted, {});
    for (const auto &object : inserted)
        adopt(object, *object->m_table, assigned.value(object.get()));
    for (const auto &object : changed)
        object->m_changed = false;
    for (const auto &object : deleted) {
        object->m_table->rows.remove(object->m_row);
        detach(*object);
    }
}

} // namespace quorvel
