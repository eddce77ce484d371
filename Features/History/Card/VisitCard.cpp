#include "Features/History/Card/VisitCard.h"

#include "Features/History/List/HistoryTexts.h"

#include <cmath>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr int coordinateDecimals = 4;

/// The letter follows the number before rounding: slightly below zero is south.
QString degrees(double value, QChar positive, QChar negative)
{
    return QString::number(std::abs(value), 'f', coordinateDecimals) + u'°' +
           (value >= 0 ? positive : negative);
}

} // namespace

VisitCard VisitCard::of(const CheckIn &checkIn, const Calendar &calendar, const QLocale &locale)
{
    VisitCard card{.title = HistoryTexts::title(checkIn),
                   .moment = HistoryTexts::day(checkIn.date(), calendar, locale) + u" · "_s +
                             HistoryTexts::time(checkIn.date(), calendar, locale),
                   .address = checkIn.address().value_or(QString()),
                   .note = checkIn.note()};
    if (const auto &cafe = checkIn.cafe()) {
        card.coordinates = coordinateLabel(cafe->latitude(), cafe->longitude());
        card.ssid = cafe->lastKnownSSID().value_or(QString());
        card.codeName = HistoryTexts::codeName(card.ssid);
    }
    if (const auto &weather = checkIn.weather()) {
        card.hasWeather = true;
        card.weatherCode = int(weather->weatherCode);
        card.isDay = weather->isDay;
        card.temperature = HistoryTexts::temperature(*weather);
    }
    for (const WorkCriterion &criterion : workCriteria) {
        card.ratingLabels.append(criterion.cardLabel.toString());
        card.ratingValues.append(int(checkIn.ratings().*criterion.score));
    }
    return card;
}

QString VisitCard::coordinateLabel(double latitude, double longitude)
{
    return degrees(latitude, u'N', u'S') + u", "_s + degrees(longitude, u'E', u'W');
}

} // namespace quorvel
