#pragma once

#include "Platform/ObjectStore/FetchDescriptor.h"

#include <QByteArray>

namespace quorvel::EntitySql {

/// The statements that make the entity's table and its indexes.
[[nodiscard]] QByteArray create(const EntityDescription &entity);

/// Reads `pk`, then the attributes' columns, then the relationships'. The conditions' values are
/// its parameters; a limit is one more.
[[nodiscard]] QByteArray select(const EntityDescription &entity, const FetchRequest &request = {});

/// Reads the row of one `pk`, in the same columns.
[[nodiscard]] QByteArray selectRow(const EntityDescription &entity);

/// Parameters: the attributes' columns, then the relationships'.
[[nodiscard]] QByteArray insert(const EntityDescription &entity);

/// Parameters: as of `insert`, then the `pk`.
[[nodiscard]] QByteArray update(const EntityDescription &entity);

[[nodiscard]] QByteArray remove(const EntityDescription &entity);

} // namespace quorvel::EntitySql
