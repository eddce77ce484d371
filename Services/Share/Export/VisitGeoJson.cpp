#include "Services/Share/Export/VisitGeoJson.h"

#include "Services/Share/Export/VisitJson.h"

#include <QJsonArray>
#include <QJsonValue>

#include <cmath>
#include <memory>

namespace quorvel::VisitGeoJson {

using namespace Qt::StringLiterals;

namespace {

bool isOnEarth(const Cafe &cafe)
{
    return std::abs(cafe.latitude()) <= 90 && std::abs(cafe.longitude()) <= 180;
}

QJsonValue geometry(const std::shared_ptr<Cafe> &cafe)
{
    if (!cafe || !isOnEarth(*cafe))
        return QJsonValue::Null;
    // Order: GeoJSON has longitude first.
    return QJsonObject{{u"type"_s, u"Point"_s},
                       {u"coordinates"_s, QJsonArray{cafe->longitude(), cafe->latitude()}}};
}

} // namespace

QJsonObject feature(const CheckIn &visit)
{
    QJsonObject properties = VisitJson::visit(visit);
    const QJsonValue id = properties.take(u"id"_s);
    return {{u"type"_s, u"Feature"_s},
            {u"id"_s, id},
            {u"geometry"_s, geometry(visit.cafe())},
            {u"properties"_s, properties}};
}

} // namespace quorvel::VisitGeoJson
