#pragma once

#include "Platform/Location/Location.h"

#include <QList>
#include <QObject>
#include <QString>

namespace quorvel {

/// Whether the user lets the program know where they are. Callers tell the cases apart by number.
enum class AuthorizationStatus {
    NotDetermined = 0,
    /// Refused by the machine's configuration, which the user may not be able to change.
    Restricted = 1,
    Denied = 2,
    AuthorizedAlways = 3,
    AuthorizedWhenInUse = 4
};

inline constexpr double hundredMetersAccuracy = 100;

/// The system's location service, for the one service that asks it. It answers through its signals:
/// on the main thread, once for each request, and never before the request has returned.
class LocationManager : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// How exact a position has to be. Set before the first request.
    virtual void setDesiredAccuracy(double meters) = 0;

    /// As it is known now; a status that was never asked for is not determined.
    [[nodiscard]] virtual AuthorizationStatus authorizationStatus() const = 0;

    /// Ends in `authorizationChanged`, also when the status is what it was.
    virtual void requestWhenInUseAuthorization() = 0;

    /// One position: ends in `locationsUpdated` or in `failed`. A new request takes the place of
    /// one that is still open.
    virtual void requestLocation() = 0;

signals:
    void authorizationChanged();
    /// The newest comes last.
    void locationsUpdated(const QList<quorvel::Location> &locations);
    /// With the system's own words.
    void failed(const QString &description);
};

} // namespace quorvel
