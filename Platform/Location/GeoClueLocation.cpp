#include "Platform/Location/GeoClueLocation.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QMetaType>
#include <QVariant>

#include <chrono>
#include <cmath>

namespace quorvel::GeoClueLocation {

using namespace Qt::StringLiterals;

namespace {

constexpr double greatestLatitude = 90;
constexpr double greatestLongitude = 180;
/// The end of the year 9999, far below what an instant can hold.
constexpr quint64 latestSecond = 253'402'300'799;
constexpr quint64 microsecondsPerMillisecond = 1'000;

double number(const QVariantMap &properties, const QString &name)
{
    const QVariant value = properties.value(name);
    return value.metaType() == QMetaType::fromType<double>() ? value.toDouble() : std::nan("");
}

Instant timestamp(const QVariant &value)
{
    // Keep this copy const: a non-const copy would open the argument for writing, and reading it
    // would end the process.
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(tt)"_L1)
        return {};
    quint64 seconds = 0;
    quint64 microseconds = 0;
    argument.beginStructure();
    argument >> seconds >> microseconds;
    argument.endStructure();
    const auto milliseconds = microseconds / microsecondsPerMillisecond;
    if (seconds > latestSecond || milliseconds > latestSecond)
        return {};
    return Instant(std::chrono::seconds(seconds) + std::chrono::milliseconds(milliseconds));
}

} // namespace

std::optional<Location> fromReply(const QDBusMessage &reply)
{
    const auto argument = reply.arguments().value(0).value<QDBusArgument>();
    if (argument.currentSignature() != "a{sv}"_L1)
        return std::nullopt;
    const auto properties = qdbus_cast<QVariantMap>(argument);
    const Location location{.latitude = number(properties, u"Latitude"_s),
                            .longitude = number(properties, u"Longitude"_s),
                            .accuracyMeters = number(properties, u"Accuracy"_s),
                            .timestamp = timestamp(properties.value(u"Timestamp"_s))};
    const bool isOnGlobe = std::abs(location.latitude) <= greatestLatitude &&
                           std::abs(location.longitude) <= greatestLongitude;
    const bool isSane =
        isOnGlobe && location.accuracyMeters >= 0 && std::isfinite(location.accuracyMeters);
    return isSane ? std::optional(location) : std::nullopt;
}

} // namespace quorvel::GeoClueLocation
