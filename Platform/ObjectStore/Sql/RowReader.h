#pragma once

#include <QHash>
#include <QString>
#include <QUuid>

#include <optional>

namespace SQLite {
class Statement;
}

namespace quorvel {

/// The current row of a query. Every getter throws StoreError (Decoding) if the column is null or
/// has another type: a stored value is never guessed.
class RowReader final
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
    /// The same, but shares the characters with equal texts of earlier rows.
    [[nodiscard]] std::optional<QString> repeatedText(int column) const;
    [[nodiscard]] QUuid uuid(int column) const;

private:
    const SQLite::Statement &m_statement;
    mutable QHash<QByteArray, QString> m_repeatedTexts; ///< by their UTF-8
};

/// The parameters of a statement, counted from 1 as in SQL.
class ParameterWriter final
{
public:
    explicit ParameterWriter(SQLite::Statement &statement)
        : m_statement(statement)
    {}

    void null(int index);
    void integer(int index, qint64 value);
    /// Throws StoreError (Encoding) for NaN, which SQLite would silently store as null.
    void real(int index, double value);
    void text(int index, const QString &value);
    void uuid(int index, const QUuid &value);

private:
    SQLite::Statement &m_statement;
};

} // namespace quorvel
