#include "Tests/Gallery/GalleryStates.h"
#include "Tests/Support/Instants.h"

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
            {u"HistoryView/failed"_s, failToList}};
}

} // namespace quorvel::tests
