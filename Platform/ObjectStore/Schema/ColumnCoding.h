#pragma once

#include "Platform/Clock/Calendar.h"
#include "Platform/ObjectStore/Sql/RowReader.h"

#include <chrono>
#include <optional>

namespace quorvel {

/// How one value of type T is stored in a column.
template <class T>
struct ColumnCoding;

template <>
struct ColumnCoding<qint64>
{
    static constexpr auto sqlType = "INTEGER NOT NULL";
    static qint64 decode(const RowReader &row, int column) { return row.integer(column); }
    static void encode(ParameterWriter &writer, int index, qint64 value)
    {
        writer.integer(index, value);
    }
};

template <>
struct ColumnCoding<bool>
{
    static constexpr auto sqlType = "INTEGER NOT NULL";
    static bool decode(const RowReader &row, int column) { return row.boolean(column); }
    static void encode(ParameterWriter &writer, int index, bool value)
    {
        writer.integer(index, value ? 1 : 0);
    }
};

template <>
struct ColumnCoding<double>
{
    static constexpr auto sqlType = "REAL NOT NULL";
    static double decode(const RowReader &row, int column) { return row.real(column); }
    static void encode(ParameterWriter &writer, int index, double value)
    {
        writer.real(index, value);
    }
};

template <>
struct ColumnCoding<QString>
{
    static constexpr auto sqlType = "TEXT NOT NULL";
    static QString decode(const RowReader &row, int column) { return row.text(column); }
    static void encode(ParameterWriter &writer, int index, const QString &value)
    {
        writer.text(index, value);
    }
};

template <>
struct ColumnCoding<QUuid>
{
    static constexpr auto sqlType = "BLOB NOT NULL";
    static QUuid decode(const RowReader &row, int column) { return row.uuid(column); }
    static void encode(ParameterWriter &writer, int index, const QUuid &value)
    {
        writer.uuid(index, value);
    }
};

/// Milliseconds since 1970 UTC.
template <>
struct ColumnCoding<Instant>
{
    static constexpr auto sqlType = "INTEGER NOT NULL";
    static Instant decode(const RowReader &row, int column)
    {
        return Instant(std::chrono::milliseconds(row.integer(column)));
    }
    static void encode(ParameterWriter &writer, int index, Instant value)
    {
        writer.integer(index, value.time_since_epoch().count());
    }
};

template <>
struct ColumnCoding<std::optional<QString>>
{
    static constexpr auto sqlType = "TEXT";
    static std::optional<QString> decode(const RowReader &row, int column)
    {
        return row.optionalText(column);
    }
    static void encode(ParameterWriter &writer, int index, const std::optional<QString> &value)
    {
        value ? writer.text(index, *value) : writer.null(index);
    }
};

} // namespace quorvel
