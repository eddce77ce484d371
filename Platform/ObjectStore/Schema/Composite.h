#pragma once

#include "Platform/ObjectStore/Schema/ColumnCoding.h"

#include <tuple>

namespace quorvel {

/// The name under which a composite value stores one of its fields.
template <class Record, class Value>
struct CodingKey
{
    const char *name;
    Value Record::*field;
};
template <class Record, class Value>
CodingKey(const char *, Value Record::*) -> CodingKey<Record, Value>;

/// A record that lists its fields in `codingKeys()`. Each field has a column of that name.
template <class T>
concept Composite = requires
{
    T::codingKeys();
};

template <Composite Record>
inline constexpr int codingKeyCount = int(std::tuple_size_v<decltype(Record::codingKeys())>);

/// Reads a composite from the columns starting at `column`, in the order of its keys.
template <Composite Record>
[[nodiscard]] Record decodeComposite(const RowReader &row, int column)
{
    Record record;
    const auto readField = [&]<class Value>(const CodingKey<Record, Value> &key) {
        record.*key.field = ColumnCoding<Value>::decode(row, column++);
    };
    std::apply([&](const auto &...key) { (readField(key), ...); }, Record::codingKeys());
    return record;
}

template <Composite Record>
void encodeComposite(ParameterWriter &writer, int index, const Record &record)
{
    const auto writeField = [&]<class Value>(const CodingKey<Record, Value> &key) {
        ColumnCoding<Value>::encode(writer, index++, record.*key.field);
    };
    std::apply([&](const auto &...key) { (writeField(key), ...); }, Record::codingKeys());
}

} // namespace quorvel
