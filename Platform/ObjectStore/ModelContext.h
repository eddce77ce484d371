#pragma once

#include "Platform/ObjectStore/FetchDescriptor.h"
#include "Platform/ObjectStore/PersistentObject.h"
#include "Platform/ObjectStore/Sql/RowReader.h"
#include "Platform/ObjectStore/Sql/RowTable.h"

#include <QHash>

#include <memory>
#include <utility>
#include <vector>

namespace quorvel {

class StoreConnection;

/// The rows of one entity that are objects right now. The objects know their table and leave it
/// when they are destroyed; the table does not keep them alive.
struct EntityTable
{
    ModelContext *context = nullptr;
    const EntityDescription *entity = nullptr;
    QByteArray insertSql;
    QByteArray selectRowSql;
    RowTable rows;
};

/// The program's working set of stored objects, on the main thread. It fetches objects, collects
/// inserts, writes and deletions, and commits them together. Fetches see unsaved changes. Every
/// operation may throw StoreError.
class ModelContext final
{
public:
    ModelContext(StoreConnection &connection, const Schema &schema);
    ModelContext(const ModelContext &) = delete;
    ModelContext &operator=(const ModelContext &) = delete;
    ~ModelContext();

    template <class Entity>
    [[nodiscard]] std::vector<std::shared_ptr<Entity>>
    fetch(const FetchDescriptor<Entity> &descriptor = {})
    {
        return cast<Entity>(fetchObjects(Entity::entity(), descriptor.request()));
    }

    /// The objects that point to `destination` through the named relationship, oldest row first.
    template <class Entity>
    [[nodiscard]] std::vector<std::shared_ptr<Entity>>
    fetchRelated(const char *relationship, const PersistentObject &destination)
    {
        return cast<Entity>(relatedObjects(Entity::entity(), relationship, destination));
    }

    /// Adds a new object, and the new objects that it points to, to the next save. Inserting an
    /// object twice changes nothing.
    void insert(const std::shared_ptr<PersistentObject> &object);

    /// Adds an object to the deletions of the next save, and others as its relationships say.
    void remove(const std::shared_ptr<PersistentObject> &object);

    /// Commits all pending changes, durable on return. If it throws, the file is unchanged, and
    /// everything stays pending for the next save.
    void save();

    [[nodiscard]] bool hasChanges() const;

private:
    friend class PersistentObject;

    using Objects = std::vector<std::shared_ptr<PersistentObject>>;
    using AssignedRows = QHash<const PersistentObject *, qint64>;

    template <class Entity>
    static std::vector<std::shared_ptr<Entity>> cast(Objects &&objects)
    {
        std::vector<std::shared_ptr<Entity>> result;
        result.reserve(objects.size());
        for (auto &object : objects)
            result.push_back(std::static_pointer_cast<Entity>(std::move(object)));
        return result;
    }

    Objects fetchObjects(const EntityDescription &entity, const FetchRequest &request);
    Objects relatedObjects(const EntityDescription &entity, const QByteArray &relationship,
                           const PersistentObject &destination);
    Objects storedMatches(EntityTable &table, const FetchRequest &request);
    void mergeUnsavedMatches(const EntityTable &table, const FetchRequest &request,
                             Objects &result) const;

    std::shared_ptr<PersistentObject> objectForRow(EntityTable &table, const RowReader &row);
    std::shared_ptr<PersistentObject> objectWithId(EntityTable &table, qint64 id);
    void resolveRelationships(PersistentObject &object, const qint64 *relatedRows);
    void adopt(const std::shared_ptr<PersistentObject> &object, EntityTable &table, qint64 row);
    static void detach(PersistentObject &object);
    EntityTable &tableOf(const EntityDescription &entity);

    void keepChanged(const PersistentObject &object);
    void insertDestinations(const PersistentObject &object);
    void releaseReferences(const PersistentObject &object);
    qint64 insertRow(const PersistentObject &object, AssignedRows &assigned);
    void updateRow(const PersistentObject &object, const AssignedRows &assigned);
    void deleteRow(const PersistentObject &object);
    static int bindColumns(SQLite::Statement &statement, const PersistentObject &object,
                           const AssignedRows &assigned);
    void didSave(const AssignedRows &assigned);
    void notifyRefreshed();

    StoreConnection &m_connection;
    std::vector<std::unique_ptr<EntityTable>> m_tables;
    Objects m_inserted;
    Objects m_changed;
    Objects m_deleted;
    Objects m_refreshed; ///< re-read by the fetch under way, not yet announced
    qint32 m_version;    ///< of other processes' commits, as of the last fetch
};

} // namespace quorvel
