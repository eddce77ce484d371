#pragma once

#include "Platform/ObjectStore/PersistentObject.h"

/// Accesses an entity's member through a stored object, for the entity's description.
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
