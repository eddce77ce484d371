#include "Core/Support/AppError.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Gallery/States/GalleryStates.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

const auto nearest = u"Cà phê Gió Sông"_s;
const auto network = u"Gió Sông 5G"_s;
/// A name of sixty characters.
const auto longName = u"Tiệm Cà Phê Sách Những Ngày Mưa Phùn Trên Phố Nguyễn Hữu Cầu"_s;

std::vector<PlaceCandidate> fewCafes()
{
    return {LoopWorld::cafe(nearest, 12), LoopWorld::cafe(u"Sân Trong – Cà phê & Sách"_s, 48),
            LoopWorld::cafe(u"The Workshop"_s, 96)};
}

std::vector<PlaceCandidate> manyCafes()
{
    std::vector<PlaceCandidate> cafes;
    for (int number = 1; number <= 30; ++number)
        cafes.push_back(LoopWorld::cafe(longName + u" "_s + QString::number(number), number * 3));
    return cafes;
}

WeatherSnapshot rainByNight()
{
    return {.temperatureC = -3, .apparentTemperatureC = -11, .weatherCode = 63, .isDay = false};
}

void hearNetworks(GalleryStage &stage)
{
    stage.world().isOn(network, -52);
    stage.world().loop.keychain.passwords.insert(network, u"ca phe sua da"_s);
    stage.world().willHear({{network, -52}, {u"Workshop Guest"_s, -67}, {u"Sân Trong"_s, -81}});
}

void locate(GalleryStage &stage, const std::vector<PlaceCandidate> &cafes = fewCafes(),
            const WeatherSnapshot &weather = LoopWorld::sun())
{
    stage.world().willFind(cafes, weather);
    hearNetworks(stage);
    stage.openPanel();
    stage.showContent();
}

void noCafe(GalleryStage &stage)
{
    stage.world().loop.willLocate();
    stage.world().loop.places.calls.willSucceed({});
    hearNetworks(stage);
    stage.openPanel();
    stage.showContent();
}

void noWeather(GalleryStage &stage)
{
    stage.world().loop.willLocate();
    stage.world().loop.places.calls.willSucceed(fewCafes());
    stage.world().loop.weather.calls.willFail(AppError::network(u"no route"_s));
    hearNetworks(stage);
    stage.openPanel();
    stage.showContent();
}

void checkedInBefore(GalleryStage &stage)
{
    stage.world().repository.checkedInToday = {nearest};
    locate(stage);
}

void checkedIn(GalleryStage &stage)
{
    locate(stage);
    stage.located().checkIn();
}

void saveFailed(GalleryStage &stage)
{
    stage.world().repository.failing = {u"save"_s};
    stage.world().repository.failure =
        u"The file could not be written, since the disk that holds /home/quỳnh/.local/share is "
        "full; free some space and try again"_s;
    checkedIn(stage);
}

void longNote(GalleryStage &stage)
{
    locate(stage);
    QStringList lines;
    for (int number = 1; number <= 10; ++number)
        lines.append(u"%1. Yên tĩnh, ổ cắm đầy đủ"_s.arg(number));
    stage.located().setNote(lines.join(u'\n'));
}

void rate(GalleryStage &stage)
{
    int row = 0;
    for (const int rating : {5, 4, 2, 4})
        stage.located().setRating(row++, rating);
    stage.located().setNote(u"Ghế êm, nhạc nhỏ."_s);
}

void rated(GalleryStage &stage)
{
    locate(stage);
    rate(stage);
}

void pick(GalleryStage &stage, const std::vector<PlaceCandidate> &cafes)
{
    locate(stage, cafes);
    stage.press(u"Change"_s);
}

} // namespace

QList<GalleryState> GalleryStates::ofLocatedView()
{
    const auto scrolled = [](GalleryStage &stage) {
        locate(stage);
        stage.scrollToEnd();
    };
    const auto inPanel = [](GalleryStage &stage) {
        stage.world().willFind(fewCafes());
        hearNetworks(stage);
        stage.openPanel();
        stage.showPanel();
    };
    const auto ratedInPanel = [inPanel](GalleryStage &stage) {
        inPanel(stage);
        rate(stage);
    };
    return {
        {u"MenuBarRootView/located"_s, inPanel},
        {u"MenuBarRootView/rated"_s, ratedInPanel},
        {u"LocatedView/full"_s, [](auto &stage) { locate(stage); }},
        {u"LocatedView/scrolled"_s, scrolled},
        {u"LocatedView/long-name"_s,
         [](auto &stage) {
             locate(stage, {LoopWorld::cafe(longName, 7), fewCafes()[1]});
         }},
        {u"LocatedView/one-candidate"_s, [](auto &stage) { locate(stage, {fewCafes()[0]}); }},
        {u"LocatedView/no-cafe"_s, noCafe},
        {u"LocatedView/no-weather"_s, noWeather},
        {u"LocatedView/rainy-night"_s,
         [](auto &stage) { locate(stage, fewCafes(), rainByNight()); }},
        {u"LocatedView/rated"_s, rated},
        {u"LocatedView/long-note"_s, longNote},
        {u"LocatedView/checked-in"_s, checkedIn},
        {u"LocatedView/already-checked-in"_s, checkedInBefore},
        {u"LocatedView/save-failed"_s, saveFailed},
    };
}

QList<GalleryState> GalleryStates::ofPicker()
{
    return {
        {u"CafePickerView/few"_s, [](auto &stage) { pick(stage, fewCafes()); }},
        {u"CafePickerView/many"_s, [](auto &stage) { pick(stage, manyCafes()); }},
        {u"CafePickerView/many-scrolled"_s,
         [](auto &stage) {
             pick(stage, manyCafes());
             stage.scrollToEnd();
         }},
    };
}

} // namespace quorvel::tests
