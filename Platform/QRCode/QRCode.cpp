#include "Platform/QRCode/QRCode.h"

#include <qrcodegen/qrcodegen.hpp>

namespace quorvel {

namespace {

using Encoder = qrcodegen::QrCode;

constexpr auto levelM = Encoder::Ecc::MEDIUM;
constexpr int chooseMask = -1;
/// A higher error correction would change the code, even if it fits.
constexpr bool raiseLevel = false;

Encoder encoded(const QByteArray &message)
{
    const auto segment = qrcodegen::QrSegment::makeBytes({message.begin(), message.end()});
    return Encoder::encodeSegments({segment}, levelM, Encoder::MIN_VERSION, Encoder::MAX_VERSION,
                                   chooseMask, raiseLevel);
}

} // namespace

std::optional<QRCode> QRCode::encode(const QByteArray &message)
try {
    const Encoder source = encoded(message);
    QRCode code(source.getSize());
    for (int row = 0; row < code.m_size; ++row) {
        for (int column = 0; column < code.m_size; ++column)
            code.m_modules.setBit(row * code.m_size + column, source.getModule(column, row));
    }
    return code;
} catch (const qrcodegen::data_too_long &) {
    return std::nullopt;
}

bool QRCode::isDark(int column, int row) const
{
    const auto isInside = [this](int index) { return index >= 0 && index < m_size; };
    return isInside(column) && isInside(row) && m_modules.testBit(row * m_size + column);
}

QRCode::QRCode(int size)
    : m_size(size)
    , m_modules(qsizetype(size) * size)
{}

} // namespace quorvel
