#pragma once

#include "Platform/ObjectStore/Schema/Composite.h"
#include "Platform/ObjectStore/Schema/MemberAccess.h"
#include "Platform/ObjectStore/Sql/RowReader.h"

#include <QByteArray>

#include <tuple>
#include <vector>

namespace quorvel {

/// A column with its SQL type.
struct ColumnDescription
{
    QByteArray name;
    QByteArray sqlType;
};

/// An attribute of an entity: its columns, and how its value is read and written.
struct AttributeDescription
{
    std::vector<ColumnDescription> columns;
    void (*read)(PersistentObject &object, const RowReader &row, int firstColumn) = nullptr;
    void (*write)(const PersistentObject &object, ParameterWriter &writer,
                  int firstIndex) = nullptr;
    /// Rows are looked up by this attribute, so it gets an index.
    bool isLookupKey = false;
};

namespace detail {

enum class Nullable : bool { No, Yes };

template <Composite Record>
std::vector<ColumnDescription> compositeColumns(Nullable nullable)
{
    std::vector<ColumnDescription> columns;
    const auto add = [&]<class Value>(const CodingKey<Record, Value> &key) {
        QByteArray sqlType = ColumnCoding<Value>::sqlType;
        if (nullable == Nullable::Yes)
            sqlType.replace(" NOT NULL", "");
        columns.push_back({key.name, sqlType});
    };
    std::apply([&](const auto &...key) { (add(key), ...); }, Record::codingKeys());
    return columns;
}

template <Composite Record>
bool isAbsent(const RowReader &row, int column)
{
    for (int i = 0; i < codingKeyCount<Record>; ++i) {
        if (!row.isNull(column + i))
            return false;
    }
    return true;
}

} // namespace detail

/// An attribute in one column of its own name.
template <auto Member>
[[nodiscard]] AttributeDescription attribute(const char *name, const char *constraint = "")
{
    using Value = typename MemberAccess::Traits<Member>::Value;
    return {
        .columns = {{name, QByteArray(ColumnCoding<Value>::sqlType) + constraint}},
        .read =
            [](PersistentObject &object, const RowReader &row, int column) {
                MemberAccess::memberOf<Member>(object) = ColumnCoding<Value>::decode(row, column);
            },
        .write =
            [](const PersistentObject &object, ParameterWriter &writer, int index) {
                ColumnCoding<Value>::encode(writer, index, MemberAccess::memberOf<Member>(object));
            }};
}

/// An attribute whose values are unique among the rows.
template <auto Member>
[[nodiscard]] AttributeDescription uniqueAttribute(const char *name)
{
    return attribute<Member>(name, " UNIQUE");
}

/// An attribute by which rows are looked up.
template <auto Member>
[[nodiscard]] AttributeDescription lookupAttribute(const char *name)
{
    auto description = attribute<Member>(name);
    description.isLookupKey = true;
    return description;
}

/// An optional text that many rows share. Objects that are read together share its memory.
template <auto Member>
[[nodiscard]] AttributeDescription repeatedAttribute(const char *name)
{
    auto description = attribute<Member>(name);
    description.read = [](PersistentObject &object, const RowReader &row, int column) {
        MemberAccess::memberOf<Member>(object) = row.repeatedText(column);
    };
    return description;
}

/// A composite value, with one column per coding key.
template <auto Member>
[[nodiscard]] AttributeDescription compositeAttribute()
{
    using Record = typename MemberAccess::Traits<Member>::Value;
    return {.columns = detail::compositeColumns<Record>(detail::Nullable::No),
            .read =
                [](PersistentObject &object, const RowReader &row, int column) {
                    MemberAccess::memberOf<Member>(object) = decodeComposite<Record>(row, column);
                },
            .write =
                [](const PersistentObject &object, ParameterWriter &writer, int index) {
                    encodeComposite(writer, index, MemberAccess::memberOf<Member>(object));
                }};
}

/// An optional composite value. If it is absent, all its columns are null. A single null among them
/// is a missing key, as in a value that is never absent.
template <auto Member>
[[nodiscard]] AttributeDescription optionalCompositeAttribute()
{
    using Record = typename MemberAccess::Traits<Member>::Value::value_type;
    return {.columns = detail::compositeColumns<Record>(detail::Nullable::Yes),
            .read =
                [](PersistentObject &object, const RowReader &row, int column) {
                    auto &value = MemberAccess::memberOf<Member>(object);
                    if (detail::isAbsent<Record>(row, column))
                        value.reset();
                    else
                        value = decodeComposite<Record>(row, column);
                },
            .write =
                [](const PersistentObject &object, ParameterWriter &writer, int index) {
                    const auto &value = MemberAccess::memberOf<Member>(object);
                    for (int i = 0; !value && i < codingKeyCount<Record>; ++i)
                        writer.null(index + i);
                    if (value)
                        encodeComposite(writer, index, *value);
                }};
}

} // namespace quorvel
