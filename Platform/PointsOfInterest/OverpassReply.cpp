#include "Platform/PointsOfInterest/OverpassReply.h"

#include "Platform/PointsOfInterest/PointsOfInterestError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

#include <cmath>
#include <optional>

namespace quorvel::OverpassReply {

using namespace Qt::StringLiterals;

namespace {

using Case = PointsOfInterestError::Case;

std::optional<QString> text(const QJsonObject &tags, QLatin1StringView key)
{
    const QString value = tags.value(key).toString().trimmed();
    return value.isEmpty() ? std::nullopt : std::optional(value);
}

/// Joins the parts that are present.
QString joined(const QList<std::optional<QString>> &parts, const QString &separator)
{
    QStringList present;
    for (const auto &part : parts)
        if (part)
            present.append(*part);
    return present.join(separator);
}

std::optional<QString> address(const QJsonObject &tags)
{
    if (auto full = text(tags, "addr:full"_L1))
        return full;
    const auto suburb = text(tags, "addr:suburb"_L1);
    const QString street =
        joined({text(tags, "addr:housenumber"_L1), text(tags, "addr:street"_L1)}, u" "_s);
    const QString line =
        joined({street.isEmpty() ? std::nullopt : std::optional(street),
                suburb ? suburb : text(tags, "addr:district"_L1), text(tags, "addr:city"_L1)},
               u", "_s);
    return line.isEmpty() ? std::nullopt : std::optional(line);
}

/// For example "node/123": the number alone is not unique among nodes, ways and relations.
std::optional<QString> identifier(const QJsonObject &element)
{
    const QString type = element.value("type"_L1).toString();
    const qint64 id = element.value("id"_L1).toInteger();
    const bool isKnown = type == "node"_L1 || type == "way"_L1 || type == "relation"_L1;
    return isKnown && id > 0 ? std::optional(type + u'/' + QString::number(id)) : std::nullopt;
}

std::optional<QString> category(const QJsonObject &tags)
{
    return tags.value("amenity"_L1) == "cafe"_L1 ? std::optional(u"MKPOICategoryCafe"_s)
                                                 : std::nullopt;
}

bool isWithin(const QJsonValue &degrees, double limit)
{
    return degrees.isDouble() && std::abs(degrees.toDouble()) <= limit;
}

/// A node has its own position; a way or a relation may have that of its centre.
std::optional<Coordinate> coordinate(const QJsonObject &element)
{
    const QJsonValue center = element.value("center"_L1);
    const QJsonObject position = center.isObject() ? center.toObject() : element;
    const QJsonValue latitude = position.value("lat"_L1);
    const QJsonValue longitude = position.value("lon"_L1);
    if (!isWithin(latitude, 90) || !isWithin(longitude, 180))
        return std::nullopt;
    return Coordinate{.latitude = latitude.toDouble(), .longitude = longitude.toDouble()};
}

PointOfInterest pointOfInterest(const QJsonObject &element, Coordinate at)
{
    const QJsonObject tags = element.value("tags"_L1).toObject();
    return {.identifier = identifier(element),
            .name = text(tags, "name"_L1),
            .coordinate = at,
            .category = category(tags),
            .address = address(tags)};
}

} // namespace

std::vector<PointOfInterest> pointsOfInterest(const QByteArray &body)
{
    const QJsonObject reply = QJsonDocument::fromJson(body).object();
    // The server reports success before it begins to search. A later failure stands in the body.
    if (reply.value("remark"_L1).toString().contains("runtime error"_L1))
        throw PointsOfInterestError(Case::Busy);
    const QJsonValue elements = reply.value("elements"_L1);
    if (!elements.isArray())
        throw PointsOfInterestError(Case::Unreadable);

    std::vector<PointOfInterest> points;
    for (const auto &value : elements.toArray()) {
        const QJsonObject element = value.toObject();
        if (const auto position = coordinate(element))
            points.push_back(pointOfInterest(element, *position));
    }
    return points;
}

} // namespace quorvel::OverpassReply
