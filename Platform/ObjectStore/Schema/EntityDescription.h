#pragma once

#include "Platform/ObjectStore/PersistentObject.h"
#include "Platform/ObjectStore/Schema/AttributeDescription.h"
#include "Platform/ObjectStore/Schema/RelationshipDescription.h"

#include <memory>
#include <vector>

namespace quorvel {

/// One kind of stored object: its table, and the mapping between objects and rows.
struct EntityDescription
{
    QByteArray name;
    std::shared_ptr<PersistentObject> (*make)() = nullptr;
    std::vector<AttributeDescription> attributes;
    std::vector<RelationshipDescription> relationships;
};

struct SchemaVersion
{
    int majorNumber = 0;
    int minorNumber = 0;
    int patchNumber = 0;

    friend auto operator<=>(const SchemaVersion &, const SchemaVersion &) = default;
};

/// The kinds of object in a store, with the version of this schema.
struct Schema
{
    SchemaVersion version;
    std::vector<const EntityDescription *> entities;
};

} // namespace quorvel
