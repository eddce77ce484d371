#include "Features/History/Share/VisitPicture.h"

#include "Core/DesignSystem/Rendering/ImageRenderer.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Models/CheckIn.h"
#include "Models/WeatherSnapshot.h"
#include "Services/Wifi/WifiQRGenerator.h"
#include "Tests/Features/History/HistoryOnScreen.h"
#include "Tests/Support/QRReader.h"

#include <QColor>
#include <QObject>
#include <QPainter>
#include <QQuickItem>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QTest>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr int cornerRadius = 16;

Visits oneVisit()
{
    const auto there = visit(u"2025-03-03T14:05:00Z"_s, cafe(u"Mây Trắng — Phố Cổ"_s));
    there->setAddress(u"12 Tôn Đức Thắng, Quận 1"_s);
    there->setNote(u"Quiet in the morning. <b>Ask</b> for the table by the window."_s);
    there->setRatings({.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 0});
    there->setWeather(WeatherSnapshot{.temperatureC = 21.5, .weatherCode = 2, .isDay = true});
    return {there};
}

QImage photo()
{
    QImage image(900, 600, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return image;
}

/// As in a window of that colour, with one pixel per point.
QImage on(const QColor &background, const QImage &image, QSize size)
{
    QImage ground(size, QImage::Format_RGB32);
    ground.fill(background);
    const QImage reduced = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter(&ground).drawImage(ground.rect(), reduced);
    return ground;
}

int difference(QRgb one, QRgb two)
{
    return std::max({std::abs(qRed(one) - qRed(two)), std::abs(qGreen(one) - qGreen(two)),
                     std::abs(qBlue(one) - qBlue(two))});
}

struct Difference
{
    int largest = 0;
    double mean = 0;
};

/// Compares pictures of one size without their corners, which have different shadows under them.
Difference differenceOf(const QImage &image, const QImage &other)
{
    const QRect inside = image.rect().adjusted(0, cornerRadius, 0, -cornerRadius);
    Difference found;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const int here = difference(image.pixel(x, y), other.pixel(x, y));
            found.largest = std::max(found.largest, here);
            found.mean += double(here) / (inside.width() * inside.height());
        }
    }
    return found;
}

} // namespace

class VisitPictureTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QuickTest::failOnWarnings();
        Theme::shared().setStyle(AppearanceStyle::Light);
        m_history.emplace(oneVisit());
        m_history->open();
    }
    void cleanup()
    {
        HistoryWorld::finishLoading();
        m_history.reset();
    }

    void thePictureIsTheCardOnTheScreen_data()
    {
        QTest::addColumn<AppearanceStyle>("style");
        QTest::newRow("light") << AppearanceStyle::Light;
        QTest::newRow("dark") << AppearanceStyle::Dark;
    }

    void thePictureIsTheCardOnTheScreen()
    {
        QFETCH(const AppearanceStyle, style);
        Theme::shared().setStyle(style);
        giveWifi(u"Blue"_s, u"secret"_s);
        open();
        const QImage screen = cardOnScreen();
        const QColor around = history().window().color();
        const QImage picture = draw();
        QCOMPARE(picture.size(), 2 * screen.size());
        QCOMPARE(picture.devicePixelRatio(), 2.0);
        const QImage single = ImageRenderer::image(
            m_engine, u"History"_s, u"VisitCardView"_s,
            {{u"detail"_s, QVariant::fromValue(history().screen.openVisit())}}, 1);
        // Drawing on a transparent picture and laying that on the window rounds once more.
        QVERIFY(differenceOf(on(around, single, screen.size()), screen).largest <= 2);
        // At scale 2 only the edges of letters and stars differ slightly.
        QVERIFY(differenceOf(on(around, picture, screen.size()), screen).mean <= 1.5);
    }

    void outsideTheCardThePictureIsTransparent()
    {
        open();
        const QImage picture = draw();
        QVERIFY(picture.hasAlphaChannel());
        QVERIFY(picture.pixelColor(0, 0).alphaF() < 0.2);
        QCOMPARE(picture.pixelColor(2 * cornerRadius, picture.height() / 2).alpha(), 255);
    }

    void aCameraReadsTheCode_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("password");
        QTest::newRow("plain") << u"Blue"_s << u"secret"_s;
        QTest::newRow("signs with a meaning") << u"Cafe;1\\,\":"_s << u"a:b\\;,\""_s;
        QTest::newRow("markup") << u"<img src=x><b>"_s << u"</b>&amp;%20"_s;
        QTest::newRow("accents") << u"Quán Cà Phê Đợi"_s << u"mật khẩu"_s;
        QTest::newRow("emoji") << u"☕️🛜"_s << u"👩‍💻"_s;
        QTest::newRow("from right to left") << u"\u202Eפקה"_s << u"\u202Dסיסמה"_s;
        QTest::newRow("lines") << u"a\nb"_s << u"\tc\r\nd"_s;
        QTest::newRow("no password") << u"Open"_s << u""_s;
        QTest::newRow("longest") << QString(32, u'm') << QString(63, u'W');
        QTest::newRow("longest in bytes") << u"界"_s.repeated(10) << u";"_s.repeated(63);
    }

    void aCameraReadsTheCode()
    {
        QFETCH(const QString, ssid);
        QFETCH(const QString, password);
        giveWifi(ssid, password);
        open();
        QCOMPARE(QRReader::read(draw()),
                 WifiQRGenerator::payload(ssid, password, u"WPA"_s).toUtf8());
    }

    void aCameraReadsTheCodeInTheDark()
    {
        Theme::shared().setStyle(AppearanceStyle::Dark);
        giveWifi(u"Blue"_s, u"secret"_s);
        open();
        QCOMPARE(QRReader::read(draw()), "WIFI:T:WPA;S:Blue;P:secret;;"_ba);
    }

    void withoutASavedPasswordThereIsNoCode()
    {
        open();
        const int bare = draw().height();
        history().screen.closeVisit();
        newest()->cafe()->setLastKnownSSID(u"Blue"_s);
        open();
        QCOMPARE(draw().height(), bare);
        QCOMPARE(QRReader::read(draw()), QByteArray());
    }

    void thePhotoIsInThePicture()
    {
        history().world.putPhoto(photo(), u"visit.png"_s);
        newest()->setPhotoFilename(u"visit.png"_s);
        open();
        const QImage picture = draw();
        QCOMPARE(picture.pixelColor(picture.width() / 2, 100), QColor(Qt::darkGreen));
    }

    void aLongNoteIsInThePictureWhole()
    {
        open();
        const int before = draw().height();
        history().screen.closeVisit();
        newest()->setNote(u"A line of its own.\n"_s.repeated(200) + u"The end."_s);
        open();
        const QImage picture = draw();
        QVERIFY(picture.height() > before + 200 * 2 * 13);
        QCOMPARE(picture.height(), 2 * cardOnScreen().height());
    }

private:
    [[nodiscard]] HistoryOnScreen &history() { return *m_history; }
    [[nodiscard]] std::shared_ptr<CheckIn> newest()
    {
        return history().world.repository.visits.back();
    }
    void giveWifi(const QString &ssid, const QString &password)
    {
        history().world.savePassword(password, ssid);
        newest()->cafe()->setLastKnownSSID(ssid);
    }
    void open()
    {
        history().screen.openVisit(1);
        HistoryWorld::finishLoading();
        history().settle();
        history().window().resize(600, 60 + int(card()->height()));
        history().settle();
    }
    [[nodiscard]] QQuickItem *card() { return history().shown("objectName", u"VisitCardView"_s); }
    /// The steam of the cup rises on screen. A picture shows its beginning.
    [[nodiscard]] QImage cardOnScreen()
    {
        QuickTest::find(card(), "periodMilliseconds", 2880.0)->setProperty("phase", 0.0);
        const QRectF place = card()->mapRectToScene({{}, card()->size()});
        return history().window().grabWindow().copy(place.toRect());
    }
    [[nodiscard]] QImage draw()
    {
        return VisitPicture::image(m_engine, *history().screen.openVisit());
    }

    QQmlEngine m_engine;
    std::optional<HistoryOnScreen> m_history;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::VisitPictureTest)
#include "VisitPictureTest.moc"
