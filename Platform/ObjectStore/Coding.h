#pragma once

#include "Platform/Clock/Calendar.h"

#include <QHash>
#include <QString>
#include <QUuid>

#include <concepts>
#include <optional>
#include <tuple>

namespace SQLite {
class Statement;
}

namespace quorvel {

/// The current row of a query. Every getter throws StoreError (Decoding) when the column is null or
/// holds another type: a stored value is never guessed.
class RowReader
{
public:
    explicit RowReader(const SQLite::Statement &statement)
        : m_statement(statement)
    {}

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] bool boolean(int column) const;
    [[nodiscard]] double real(int column) const;
    [[nodiscard]] QString text(int column) const;
    [[nodiscard]] std::optional<QString> optionalText(int column) const;
    /// The same, sharing its characters with equal ones among the rows read before.
    [[nodiscard]] std::optional<QString> repeatedText(int column) const;
    [[nodiscard]] QUuid uuid(int column) const;

private:
    const SQLite::Statement &m_statement;
    mutable QHash<QByteArray, QString> m_repeatedTexts; ///< by their UTF-8
};

/// The parameters of a statement, counted from 1 as SQL does.
class ParameterWriter
{
public:
    explicit ParameterWriter(SQLite::Statement &statement)
        : m_statement(statement)
    {}

    void null(int index);
    void integer(int index, qint64 value);
    /// Throws StoreError (Encoding) for NaN, which SQLite would silently keep as null.
    void real(int index, double value);
    void text(int index, const QString &value);
    void uuid(int index, const QUuid &value);

private:
    SQLite::Statement &m_statement;
};

/// How one value of type T stands in one column.
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

/// The name under which a composite value keeps one of its fields.
template <class Record, class Value>
struct CodingKey
{
    const char *name;
    Value Record::*field;
};
template <class Record, class Value>
CodingKey(const char *, Value Record::*) -> CodingKey<Record, Value>;

/// A value record that lists its fields in `codingKeys()`; each stands in a column of that name.
template <class T>
concept Composite = requires
{
    T::codingKeys();
};

template <Composite Record>
inline constexpr int codingKeyCount = int(std::tuple_size_v<decltype(Record::codingKeys())>);

/// Reads a composite from the columns beginning at `column`, in the order of its keys.
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
