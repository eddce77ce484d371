#include "Platform/ObjectStore/Sql/EntitySql.h"

#include "Platform/ObjectStore/Schema/RelationshipDescription.h"

#include <QByteArrayList>

namespace quorvel::EntitySql {

namespace {

QByteArray quoted(const QByteArray &name)
{
    return '"' + name + '"';
}

QByteArrayList columnNames(const EntityDescription &entity)
{
    QByteArrayList names;
    for (const auto &attribute : entity.attributes) {
        for (const auto &column : attribute.columns)
            names.append(quoted(column.name));
    }
    for (const auto &relationship : entity.relationships)
        names.append(quoted(relationship.name));
    return names;
}

QByteArray selectAll(const EntityDescription &entity)
{
    return "SELECT pk, " + columnNames(entity).join(", ") + " FROM " + quoted(entity.name);
}

QByteArray foreignKey(const RelationshipDescription &relationship)
{
    const QByteArray rule =
        relationship.whenDestinationIsDeleted == DeleteRule::Cascade ? "CASCADE" : "SET NULL";
    return quoted(relationship.name) + " INTEGER REFERENCES " +
           quoted(relationship.destination().name) + "(pk) ON DELETE " + rule;
}

QByteArray index(const EntityDescription &entity, const QByteArray &column)
{
    return "CREATE INDEX " + quoted(entity.name + '_' + column) + " ON " + quoted(entity.name) +
           '(' + quoted(column) + ");";
}

} // namespace

QByteArray create(const EntityDescription &entity)
{
    QByteArrayList definitions{"pk INTEGER PRIMARY KEY"};
    QByteArray indexes;
    for (const auto &attribute : entity.attributes) {
        for (const auto &column : attribute.columns)
            definitions.append(quoted(column.name) + ' ' + column.sqlType);
        if (attribute.isLookupKey)
            indexes += index(entity, attribute.columns.front().name);
    }
    for (const auto &relationship : entity.relationships) {
        definitions.append(foreignKey(relationship));
        indexes += index(entity, relationship.name);
    }
    return "CREATE TABLE " + quoted(entity.name) + '(' + definitions.join(", ") + ");" + indexes;
}

QByteArray select(const EntityDescription &entity, const FetchRequest &request)
{
    QByteArray sql = selectAll(entity);
    const char *conjunction = " WHERE ";
    for (const auto &condition : request.conditions) {
        sql += conjunction + quoted(condition.column) + " IS ?";
        conjunction = " AND ";
    }
    sql += " ORDER BY pk";
    return request.limit ? sql + " LIMIT ?" : sql;
}

QByteArray selectRow(const EntityDescription &entity)
{
    return selectAll(entity) + " WHERE pk = ?";
}

QByteArray insert(const EntityDescription &entity)
{
    const QByteArrayList names = columnNames(entity);
    const QByteArrayList marks(names.size(), "?");
    return "INSERT INTO " + quoted(entity.name) + '(' + names.join(", ") + ") VALUES(" +
           marks.join(", ") + ')';
}

QByteArray update(const EntityDescription &entity)
{
    return "UPDATE " + quoted(entity.name) + " SET " + columnNames(entity).join(" = ?, ") +
           " = ? WHERE pk = ?";
}

QByteArray remove(const EntityDescription &entity)
{
    return "DELETE FROM " + quoted(entity.name) + " WHERE pk = ?";
}

} // namespace quorvel::EntitySql
