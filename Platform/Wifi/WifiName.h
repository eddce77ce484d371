#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvel {

/// A network's name: what its access points broadcast, up to 32 bytes of any kind, and how people
/// read it. Networks are told apart by the bytes and asked for by the text.
struct WifiName
{
    QByteArray bytes;
    /// The bytes as UTF-8 or, where they are not, as Latin-1.
    QString text;

    /// Nothing for the name of a network that hides it: no bytes, or only zeros.
    [[nodiscard]] static std::optional<WifiName> fromBytes(const QByteArray &bytes);

    friend bool operator==(const WifiName &, const WifiName &) = default;
};

} // namespace quorvel
