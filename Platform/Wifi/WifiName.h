#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvel {

/// A network's name: the broadcast bytes, up to 32 of any value, and the text that people read.
/// Bytes identify a network; the text is used to ask for it.
struct WifiName
{
    QByteArray bytes;
    /// The bytes as UTF-8, or as Latin-1 if they are not UTF-8.
    QString text;

    /// Nothing for a hidden name: no bytes, or only zeros.
    [[nodiscard]] static std::optional<WifiName> fromBytes(const QByteArray &bytes);

    friend bool operator==(const WifiName &, const WifiName &) = default;
};

} // namespace quorvel
