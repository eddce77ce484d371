#pragma once

#include "Platform/ObjectStore/FetchDescriptor.h"

#include <QByteArray>

namespace quorvel::EntitySql {

/// The statements that create the entity's table and its indexes.
[[nodiscard]] QByteArray create(const EntityDescription &entity);

/// Reads `pk`, then the attributes' columns, then the relationships'. Its parameters are the
/// conditions' values, then the limit if there is one.
[[nodiscard]] QByteArray select(const EntityDescription &entity, const FetchRequest &request = {});

/// Reads the row of one `pk`, with the same columns.
[[nodiscard]] QByteArray selectRow(const EntityDescription &entity);

/// Parameters: the attributes' columns, then the relationships'.
[[nodiscard]] QByteArray insert(const EntityDescription &entity);

/// Parameters: as for `insert`, then the `pk`.
[[nodiscard]] QByteArray update(const EntityDescription &entity);

[[nodiscard]] QByteArray remove(const EntityDescription &entity);

} // namespace quorvel::EntitySql
