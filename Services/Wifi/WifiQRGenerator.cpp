#include "Services/Wifi/WifiQRGenerator.h"

#include "Platform/QRCode/QRCode.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace quorvel::WifiQRGenerator {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView escapedCharacters = u"\\;,:\"";
/// The smallest margin that readers accept, in modules.
constexpr int quietZoneModules = 4;
/// In pixels: larger than any poster needs, and 64 MB already.
constexpr double longestSidePixels = 8192;
constexpr uchar paper = 0xff;
constexpr uchar ink = 0x00;

QString escaped(const QString &text)
{
    QString result;
    for (const QChar character : text) {
        if (escapedCharacters.contains(character))
            result += u'\\';
        result += character;
    }
    return result;
}

/// For each pixel along a side: the index of its module, counted from the code's first.
std::vector<int> modulesOfPixels(int side, double scale)
{
    std::vector<int> modules(static_cast<size_t>(side));
    for (size_t pixel = 0; pixel < modules.size(); ++pixel)
        modules[pixel] = int(std::floor((double(pixel) + 0.5) / scale)) - quietZoneModules;
    return modules;
}

void paint(const QRCode &code, const std::vector<int> &modules, QImage &image)
{
    const size_t bytes = modules.size();
    for (size_t y = 0; y < bytes; ++y) {
        uchar *pixels = image.scanLine(int(y));
        if (y > 0 && modules[y] == modules[y - 1])
            std::memcpy(pixels, image.constScanLine(int(y) - 1), bytes);
        else
            std::transform(modules.begin(), modules.end(), pixels, [&](int column) {
                return code.isDark(column, modules[y]) ? ink : paper;
            });
    }
}

} // namespace

QString payload(const QString &ssid, const QString &password, const QString &auth)
{
    return u"WIFI:T:"_s + auth + u";S:"_s + escaped(ssid) + u";P:"_s + escaped(password) + u";;"_s;
}

std::optional<QImage> image(const QString &payload, double scale)
{
    const auto code = QRCode::encode(payload.toUtf8());
    if (!code)
        return std::nullopt;
    const double extent = std::round((code->size() + 2 * quietZoneModules) * scale);
    // This also rejects a scale that is not a number.
    if (!(extent >= 1 && extent <= longestSidePixels))
        return std::nullopt;
    const int side = int(extent);
    QImage image(side, side, QImage::Format_Grayscale8);
    if (image.isNull())
        return std::nullopt;
    paint(*code, modulesOfPixels(image.width(), scale), image);
    return image;
}

} // namespace quorvel::WifiQRGenerator
