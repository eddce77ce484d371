#include "Benchmarks/Comparison.h"
#include "Core/Keychain/SecItemKeychainStore.h"
#include "Features/History/Share/VisitPicture.h"
#include "Features/History/Visit/VisitDetail.h"
#include "Models/Cafe.h"
#include "Models/CheckIn.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Keychain/FakeKeychain.h"
#include "Platform/Pasteboard/PictureOffer.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QThreadPool>
#include <QUuid>

#include <memory>
#include <optional>

using namespace quorvel;
using namespace quorvel::benchmarks;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 31;
constexpr double aimedDrawing = 1.0;
constexpr double aimedPasting = 1.0;
const QString ssid = u"Quán Cà Phê Đợi"_s;

/// A visit with everything that a card may have, except a photo.
std::shared_ptr<CheckIn> fullVisit()
{
    const auto cafe = std::make_shared<Cafe>(QUuid::createUuid(), u"Mây Trắng — Phố Cổ"_s, 21.03,
                                             105.85, ssid, std::nullopt);
    return std::make_shared<CheckIn>(
        QUuid::createUuid(), Clock::system().now(), u"Quiet in the morning. "_s.repeated(4),
        u"12 Tôn Đức Thắng, Quận 1"_s, std::nullopt,
        WorkRatings{.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 1},
        WeatherSnapshot{.temperatureC = 21.5, .weatherCode = 2, .isDay = true}, cafe);
}

std::unique_ptr<Keychain> keychainWithPassword()
{
    auto keychain = std::make_unique<FakeKeychain>();
    SecItemKeychainStore(SecItemKeychainStore::wifiService, *keychain)
        .savePassword(QString(63, u'x'), ssid);
    return keychain;
}

/// When this returns, the code is on the card.
void finishLoading(VisitDetail &detail)
{
    detail.load();
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::sendPostedEvents();
    if (!detail.hasWifiQR())
        qFatal("The card has no code");
}

QByteArray bareEncoding(const QImage &image)
{
    QBuffer buffer;
    if (!image.save(&buffer, "PNG"))
        qFatal("The picture cannot be put into a file");
    return buffer.data();
}

} // namespace

/// Compares a press on Share with Qt's own way of writing the finished picture to a file.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    QQmlEngine engine;
    tests::QuietFacilities system;
    system.facilities.makeKeychain = keychainWithPassword;
    VisitDetail detail(fullVisit(), system.facilities, system.pasteboard, {});
    finishLoading(detail);
    // The first run compiles the view, which in the program has happened before a share.
    const QImage image = VisitPicture::image(engine, detail);
    const auto draw = [&] {
        return timeOf(
            [&] { (void)PictureOffer(VisitPicture::image(engine, detail), Secrecy::Secret); });
    };
    const auto paste = [&image] {
        const PictureOffer offer(image, Secrecy::Secret);
        return timeOf([&offer] { (void)offer.data(u"image/png"_s); });
    };
    const auto encode = [&image] { return timeOf([&image] { (void)bareEncoding(image); }); };

    printHeading("sharing a visit, against a bare PNG of its picture");
    printRow("press to clipboard", interleaved(rounds, draw, encode), aimedDrawing);
    printRow("first paste", interleaved(rounds, paste, encode), aimedPasting);
    return 0;
}
