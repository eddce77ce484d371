#include "Platform/ObjectStore/Sql/RowReader.h"

#include "Platform/ObjectStore/StoreError.h"

#include <QStringConverter>
#include <QStringDecoder>
#include <QVarLengthArray>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include <cmath>
#include <optional>

namespace quorvel {

namespace {

using namespace Qt::StringLiterals;

constexpr int uuidBytes = 16;
/// Beyond these limits a text is treated as one that does not repeat.
constexpr qsizetype maximumRepeatedTexts = 4096;

[[noreturn]] void throwDecodingError(const SQLite::Column &column)
{
    const auto name = QString::fromUtf8(column.getName());
    const auto reason = column.isNull() ? u"is missing"_s : u"is of the wrong type"_s;
    throw StoreError(StoreError::Code::Decoding, u"The stored value “%1” %2."_s.arg(name, reason));
}

/// The column's own characters, valid until the next row.
QByteArrayView utf8(const SQLite::Column &column)
{
    if (!column.isText())
        throwDecodingError(column);
    const char *bytes = column.getText();
    return {bytes, column.size()};
}

/// QString's own conversion reserves one character per byte, a third too many in Vietnamese, and
/// drops a leading byte order mark.
QString decoded(QByteArrayView utf8)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom |
                                                     QStringDecoder::Flag::Stateless);
    QVarLengthArray<QChar, 512> characters(decoder.requiredSpace(utf8.size()));
    const QChar *end = decoder.appendToBuffer(characters.data(), utf8);
    return QString(characters.constData(), end - characters.constData());
}

} // namespace

bool RowReader::isNull(int column) const
{
    return m_statement.getColumn(column).isNull();
}

qint64 RowReader::integer(int column) const
{
    const auto value = m_statement.getColumn(column);
    if (!value.isInteger())
        throwDecodingError(value);
    return value.getInt64();
}

bool RowReader::boolean(int column) const
{
    const qint64 value = integer(column);
    if (value != 0 && value != 1)
        throwDecodingError(m_statement.getColumn(column));
    return value == 1;
}

double RowReader::real(int column) const
{
    const auto value = m_statement.getColumn(column);
    if (!value.isFloat())
        throwDecodingError(value);
    return value.getDouble();
}

QString RowReader::text(int column) const
{
    const auto value = m_statement.getColumn(column);
    return decoded(utf8(value));
}

std::optional<QString> RowReader::optionalText(int column) const
{
    const auto value = m_statement.getColumn(column);
    return value.isNull() ? std::nullopt : std::optional(decoded(utf8(value)));
}

std::optional<QString> RowReader::repeatedText(int column) const
{
    const auto value = m_statement.getColumn(column);
    if (value.isNull())
        return std::nullopt;
    const QByteArrayView bytes = utf8(value);
    const auto key = QByteArray::fromRawData(bytes.data(), bytes.size());
    if (const auto known = m_repeatedTexts.constFind(key); known != m_repeatedTexts.constEnd())
        return *known;
    const QString text = decoded(bytes);
    if (m_repeatedTexts.size() < maximumRepeatedTexts)
        m_repeatedTexts.insert(bytes.toByteArray(), text);
    return text;
}

QUuid RowReader::uuid(int column) const
{
    const auto value = m_statement.getColumn(column);
    if (!value.isBlob() || value.size() != uuidBytes)
        throwDecodingError(value);
    return QUuid::fromRfc4122(
        QByteArrayView(static_cast<const char *>(value.getBlob()), uuidBytes));
}

void ParameterWriter::null(int index)
{
    m_statement.bind(index);
}

void ParameterWriter::integer(int index, qint64 value)
{
    m_statement.bind(index, int64_t(value));
}

void ParameterWriter::real(int index, double value)
{
    if (std::isnan(value))
        throw StoreError(StoreError::Code::Encoding,
                         u"A value that is not a number was refused."_s);
    m_statement.bind(index, value);
}

void ParameterWriter::text(int index, const QString &value)
{
    m_statement.bind(index, value.toStdString());
}

void ParameterWriter::uuid(int index, const QUuid &value)
{
    const QByteArray bytes = value.toRfc4122();
    m_statement.bind(index, bytes.constData(), int(bytes.size()));
}

} // namespace quorvel
