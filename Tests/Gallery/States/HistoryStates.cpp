#include "Models/Cafe.h"
#include "Models/CheckIn.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Gallery/States/GalleryStates.h"
#include "Tests/Support/Instants.h"

#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPoint>
#include <QUuid>

#include <memory>
#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

constexpr WorkRatings good{.wifiSpeed = 5, .outlets = 4, .noise = 2, .quietForCalls = 3};
constexpr WorkRatings unrated{};

void visit(GalleryStage &stage, const QString &time, const QString &cafe, const QString &note,
           const WorkRatings &ratings, std::optional<WeatherSnapshot> weather)
{
    auto place = std::make_shared<Cafe>(QUuid::createUuid(), cafe, 0, 0, std::nullopt, cafe);
    stage.historyWorld().repository.visits.push_back(
        std::make_shared<CheckIn>(QUuid::createUuid(), instant(time), note, std::nullopt,
                                  std::nullopt, ratings, weather, place));
}

void listVisits(GalleryStage &stage)
{
    stage.historyWorld().clock.instant = instant(u"2026-11-21T15:00:00Z"_s);
    const WeatherSnapshot rain{.temperatureC = 24, .weatherCode = 61, .isDay = true};
    visit(stage, u"2026-11-17T08:05:00Z"_s, u"The Workshop"_s, {}, unrated, std::nullopt);
    visit(stage, u"2026-11-20T10:40:00Z"_s,
          u"Tiệm Cà Phê Sách Những Ngày Mưa Phùn Trên Phố Nguyễn Hữu Cầu"_s,
          u"Bàn cạnh cửa sổ có ổ cắm, nhưng buổi chiều rất đông. Nhạc hơi to, mang theo tai "
          u"nghe thì vẫn làm việc được cả ngày."_s,
          good, rain);
    visit(stage, u"2026-11-21T09:30:00Z"_s, u"Sân Trong – Cà phê & Sách"_s, {}, good, rain);
    visit(stage, u"2026-11-21T14:05:00Z"_s, u"Cà phê Gió Sông"_s, u"Yên tĩnh, ổ cắm đầy đủ."_s,
          good, LoopWorld::sun());
    stage.showHistory();
}

/// The format of a phone that is held upright.
QImage photo()
{
    QImage image(900, 1200, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, 1200);
    sky.setColorAt(0, QColor(0x2d4a5e));
    sky.setColorAt(0.55, QColor(0xd9a066));
    sky.setColorAt(1, QColor(0x3a2a22));
    painter.fillRect(image.rect(), sky);
    painter.setBrush(QColor(0xf7e3b5));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(450, 560), 90, 90);
    return image;
}

std::shared_ptr<CheckIn> fullVisit()
{
    auto place = std::make_shared<Cafe>(QUuid::createUuid(), u"Cà phê Gió Sông"_s, 10.7769,
                                        106.7009, u"GioSong_5G"_s, std::nullopt);
    return std::make_shared<CheckIn>(QUuid::createUuid(), instant(u"2026-11-21T14:05:00Z"_s),
                                     u"Yên tĩnh, ổ cắm đầy đủ. Bàn cạnh cửa sổ nhìn ra sông."_s,
                                     u"12 Tôn Đức Thắng, Bến Nghé, Quận 1"_s, std::nullopt, good,
                                     LoopWorld::sun(), place);
}

void showFullVisit(GalleryStage &stage)
{
    stage.historyWorld().repository.visits = {fullVisit()};
    stage.historyWorld().savePassword(u"cà phê sữa đá"_s, u"GioSong_5G"_s);
    stage.showVisit();
}

void showVisitWithPhoto(GalleryStage &stage)
{
    const auto visit = fullVisit();
    visit->setPhotoFilename(u"visit.png"_s);
    visit->setWeather(WeatherSnapshot{.temperatureC = -0.5, .weatherCode = 77, .isDay = false});
    stage.historyWorld().repository.visits = {visit};
    stage.historyWorld().putPhoto(photo(), u"visit.png"_s);
    stage.showVisit();
}

void showBareVisit(GalleryStage &stage)
{
    stage.historyWorld().repository.visits = {std::make_shared<CheckIn>(
        QUuid::createUuid(), instant(u"2026-11-21T14:05:00Z"_s), QString(), std::nullopt,
        std::nullopt, unrated, std::nullopt, nullptr)};
    stage.showVisit();
}

void showVisitOfManyWords(GalleryStage &stage)
{
    const QString name =
        u"Tiệm Cà Phê Sách Những Ngày Mưa Phùn Trên Phố Nguyễn Hữu Cầu – Chi Nhánh Thảo Điền"_s;
    auto place = std::make_shared<Cafe>(QUuid::createUuid(), name, -33.8568, 151.2153,
                                        u"Những Ngày Mưa Phùn – Khách"_s, std::nullopt);
    const QString sentence =
        u"Bàn cạnh cửa sổ có ổ cắm, nhưng buổi chiều rất đông. Nhạc hơi to, mang theo tai nghe "
        u"thì vẫn làm việc được cả ngày. "_s;
    const QString address = u"Tầng 2, Hẻm 47/12 Đường Nguyễn Hữu Cầu, Phường Thảo Điền, Thành "
                            u"phố Thủ Đức, Thành phố Hồ Chí Minh, Việt Nam"_s;
    stage.historyWorld().repository.visits = {std::make_shared<CheckIn>(
        QUuid::createUuid(), instant(u"2026-11-21T14:05:00Z"_s), sentence.repeated(4), address,
        std::nullopt, good, LoopWorld::sun(), place)};
    stage.historyWorld().savePassword(QString(63, u'x'), *place->lastKnownSSID());
    stage.showVisit();
}

void failToList(GalleryStage &stage)
{
    stage.historyWorld().repository.failing = {u"allCheckIns"_s};
    stage.historyWorld().repository.failure = u"The disk does not answer."_s;
    stage.showHistory();
}

} // namespace

QList<GalleryState> GalleryStates::ofHistory()
{
    return {{u"HistoryView/empty"_s, [](auto &stage) { stage.showHistory(); }},
            {u"HistoryView/list"_s, listVisits},
            {u"HistoryView/failed"_s, failToList},
            {u"VisitDetailView/full"_s, showFullVisit},
            {u"VisitDetailView/photo"_s, showVisitWithPhoto},
            {u"VisitDetailView/bare"_s, showBareVisit},
            {u"VisitDetailView/many-words"_s, showVisitOfManyWords},
            {u"VisitDetailView/many-words-end"_s, [](auto &stage) {
                 showVisitOfManyWords(stage);
                 stage.scrollToEnd();
             }}};
}

} // namespace quorvel::tests
