#include "Benchmarks/Comparison.h"
#include "Platform/QRCode/QRCode.h"
#include "Services/Wifi/WifiQRGenerator.h"

#include <qrcodegen/qrcodegen.hpp>

#include <cstdlib>

using namespace quorvel;
using namespace quorvel::benchmarks;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 501;
constexpr double aimedRatio = 1.3;
constexpr double usedScale = 8;

/// Keeps the optimiser from removing unused results.
void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// The bare encoder, for the same code.
qrcodegen::QrCode encodedDirectly(const QByteArray &message)
{
    const auto segment = qrcodegen::QrSegment::makeBytes({message.begin(), message.end()});
    return qrcodegen::QrCode::encodeSegments({segment}, qrcodegen::QrCode::Ecc::MEDIUM, 1, 40, -1,
                                             false);
}

Milliseconds direct(const QByteArray &message)
{
    return timeOf([&] { require(encodedDirectly(message).getSize() > 0); });
}

} // namespace

/// Compares making the code for a network with the longest password with a direct call of the
/// encoder.
int main()
{
    const QString payload =
        WifiQRGenerator::payload(u"Quán Cà Phê Đợi"_s, QString(63, u'x'), u"WPA"_s);
    const QByteArray message = payload.toUtf8();

    printHeading("QR code, against the encoder alone");
    printRow("encode to a grid of modules",
             interleaved(
                 rounds,
                 [&] { return timeOf([&] { require(QRCode::encode(message).has_value()); }); },
                 [&] { return direct(message); }),
             aimedRatio);
    printRow("encode and paint at scale 8",
             interleaved(
                 rounds,
                 [&] {
                     return timeOf(
                         [&] { require(WifiQRGenerator::image(payload, usedScale).has_value()); });
                 },
                 [&] { return direct(message); }),
             aimedRatio);
    return 0;
}
