#pragma once

#include <QBitArray>
#include <QByteArray>

#include <optional>

namespace quorvel {

/// The square of dark and light modules that cameras read a message from.
class QRCode final
{
public:
    /// The smallest code that holds the message byte by byte at error-correction level M, neither
    /// less nor more. Absent where no code is large enough.
    [[nodiscard]] static std::optional<QRCode> encode(const QByteArray &message);

    /// Modules along each side.
    [[nodiscard]] int size() const { return m_size; }
    /// Around the square all is light.
    [[nodiscard]] bool isDark(int column, int row) const;

private:
    explicit QRCode(int size);

    int m_size;
    QBitArray m_modules;
};

} // namespace quorvel
