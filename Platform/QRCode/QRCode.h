#pragma once

#include <QBitArray>
#include <QByteArray>

#include <optional>

namespace quorvel {

/// The square of dark and light modules that a camera reads.
class QRCode final
{
public:
    /// Returns the smallest code that holds the message as bytes, at error-correction level M
    /// exactly. Absent if no code is large enough.
    [[nodiscard]] static std::optional<QRCode> encode(const QByteArray &message);

    /// The number of modules along each side.
    [[nodiscard]] int size() const { return m_size; }
    /// Modules outside the square are light.
    [[nodiscard]] bool isDark(int column, int row) const;

private:
    explicit QRCode(int size);

    int m_size;
    QBitArray m_modules;
};

} // namespace quorvel
