#pragma once

#include "Platform/ObjectStore/Schema/MemberAccess.h"

#include <QByteArray>

#include <memory>
#include <utility>

namespace quorvel {

struct EntityDescription;

/// What happens to an object when its target is deleted.
enum class DeleteRule { Nullify, Cascade };

/// A to-one relationship. The inverse, to-many side is a query for the objects that point back.
struct RelationshipDescription
{
    QByteArray name;
    const EntityDescription &(*destination)() = nullptr;
    const PersistentObject *(*get)(const PersistentObject &object) = nullptr;
    std::shared_ptr<PersistentObject> (*getShared)(const PersistentObject &object) = nullptr;
    void (*set)(PersistentObject &object, std::shared_ptr<PersistentObject> destination) = nullptr;
    DeleteRule whenDestinationIsDeleted = DeleteRule::Nullify;
};

/// A reference to one object of another entity, or to none.
template <auto Member>
[[nodiscard]] RelationshipDescription toOne(const char *name, DeleteRule whenDestinationIsDeleted)
{
    using Destination = typename MemberAccess::Traits<Member>::Value::element_type;
    return {.name = name,
            .destination = &Destination::entity,
            .get = [](const PersistentObject &object) -> const PersistentObject * {
                return MemberAccess::memberOf<Member>(object).get();
            },
            .getShared = [](const PersistentObject &object) -> std::shared_ptr<PersistentObject> {
                return MemberAccess::memberOf<Member>(object);
            },
            .set =
                [](PersistentObject &object, std::shared_ptr<PersistentObject> destination) {
                    MemberAccess::memberOf<Member>(object) =
                        std::static_pointer_cast<Destination>(std::move(destination));
                },
            .whenDestinationIsDeleted = whenDestinationIsDeleted};
}

} // namespace quorvel
