#pragma once

#include "Platform/ObjectStore/PersistentObject.h"

/// Reaches an entity's member from a stored object, for what describes the entity.
namespace quorvel::MemberAccess {

template <auto Member>
struct Traits;

template <class O, class V, V O::*Member>
struct Traits<Member>
{
    using Owner = O;
    using Value = V;
};

template <auto Member>
const auto &memberOf(const PersistentObject &object)
{
    return static_cast<const typename Traits<Member>::Owner &>(object).*Member;
}

template <auto Member>
auto &memberOf(PersistentObject &object)
{
    return static_cast<typename Traits<Member>::Owner &>(object).*Member;
}

} // namespace quorvel::MemberAccess
