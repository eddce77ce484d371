#include "Platform/Wifi/WifiName.h"

#include <QStringDecoder>

namespace quorvel {

namespace {

QString textOf(const QByteArray &bytes)
{
    // A byte order mark is kept: names may differ in it.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

} // namespace

std::optional<WifiName> WifiName::fromBytes(const QByteArray &bytes)
{
    if (bytes.count('\0') == bytes.size())
        return std::nullopt;
    return WifiName{.bytes = bytes, .text = textOf(bytes)};
}

} // namespace quorvel
