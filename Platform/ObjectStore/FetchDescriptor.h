#pragma once

#include "Platform/ObjectStore/PersistentObject.h"
#include "Platform/ObjectStore/Schema/ColumnCoding.h"
#include "Platform/ObjectStore/Schema/EntityDescription.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <type_traits>
#include <vector>

namespace quorvel {

/// Names an attribute of an entity in a fetch.
template <class Entity, class Result>
struct AttributeKey
{
    const char *name;
    Result (Entity::*get)() const;
};
template <class Entity, class Result>
AttributeKey(const char *, Result (Entity::*)() const) -> AttributeKey<Entity, Result>;

/// A fetch without its types, as the context runs it. Each condition exists twice: for rows in the
/// store, and for objects with unsaved changes.
struct FetchRequest
{
    struct Condition
    {
        QByteArray column;
        std::function<void(ParameterWriter &, int index)> bind;
        std::function<bool(const PersistentObject &)> matches;
    };

    std::vector<Condition> conditions; ///< all of them hold
    std::optional<int> limit;
};

/// Which objects to fetch, and how many at most. The results have the store's order, which is the
/// order of their first save.
template <class Entity>
class FetchDescriptor final
{
public:
    template <class Result>
    FetchDescriptor &whereEqual(AttributeKey<Entity, Result> key, std::remove_cvref_t<Result> value)
    {
        using Value = std::remove_cvref_t<Result>;
        m_request.conditions.push_back({key.name,
                                        [value](ParameterWriter &writer, int index) {
                                            ColumnCoding<Value>::encode(writer, index, value);
                                        },
                                        [value, get = key.get](const PersistentObject &object) {
                                            return (static_cast<const Entity &>(object).*get)() ==
                                                   value;
                                        }});
        return *this;
    }

    FetchDescriptor &limit(int count)
    {
        m_request.limit = count;
        return *this;
    }

    [[nodiscard]] const FetchRequest &request() const { return m_request; }

private:
    FetchRequest m_request;
};

} // namespace quorvel
