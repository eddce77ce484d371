#include "Services/Share/Export/VisitJson.h"

#include <QDateTime>
#include <QJsonValue>
#include <QUuid>

#include <memory>
#include <optional>

namespace quorvel::VisitJson {

using namespace Qt::StringLiterals;

namespace {

QString identifier(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces);
}

QJsonValue cafe(const std::shared_ptr<Cafe> &cafe)
{
    if (!cafe)
        return QJsonValue::Null;
    return QJsonObject{{u"id"_s, identifier(cafe->id())},
                       {u"name"_s, cafe->name()},
                       {u"latitude"_s, cafe->latitude()},
                       {u"longitude"_s, cafe->longitude()},
                       {u"lastKnownSSID"_s, text(cafe->lastKnownSSID())},
                       {u"mapItemIdentifier"_s, text(cafe->mapItemIdentifier())}};
}

} // namespace

QJsonObject visit(const CheckIn &visit)
{
    return {{u"id"_s, identifier(visit.id())},
            {u"date"_s, date(visit.date())},
            {u"note"_s, visit.note()},
            {u"address"_s, text(visit.address())},
            {u"photoFilename"_s, text(visit.photoFilename())},
            {u"ratings"_s, ratings(visit.ratings())},
            {u"weather"_s, weather(visit.weather())},
            {u"cafe"_s, cafe(visit.cafe())}};
}

QJsonObject ratings(const WorkRatings &ratings)
{
    QJsonObject json;
    for (const WorkCriterion &criterion : workCriteria)
        json.insert(QLatin1StringView(criterion.key), ratings.*criterion.score);
    return json;
}

QJsonValue weather(const std::optional<WeatherSnapshot> &weather)
{
    if (!weather)
        return QJsonValue::Null;
    return QJsonObject{{u"temperatureC"_s, weather->temperatureC},
                       {u"apparentTemperatureC"_s, weather->apparentTemperatureC},
                       {u"weatherCode"_s, weather->weatherCode},
                       {u"isDay"_s, weather->isDay},
                       {u"capturedAt"_s, date(weather->capturedAt)}};
}

QString date(Instant instant)
{
    const auto milliseconds = instant.time_since_epoch().count();
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC).toString(Qt::ISODateWithMs);
}

QJsonValue text(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

} // namespace quorvel::VisitJson
