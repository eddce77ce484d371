#pragma once

#include "Platform/Location/Location.h"

#include <QList>
#include <QObject>
#include <QString>

namespace quorvel {

/// Whether the user lets the program know their position. Callers may rely on the numbers.
enum class AuthorizationStatus {
    NotDetermined = 0,
    /// Refused by the machine's configuration. The user may not be able to change it.
    Restricted = 1,
    Denied = 2,
    AuthorizedAlways = 3,
    AuthorizedWhenInUse = 4
};

inline constexpr double hundredMetersAccuracy = 100;

/// The system's location service, for the one service that asks it. It answers with its signals: on
/// the main thread, once per request, and never before the request has returned.
class LocationManager : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// How exact a position has to be. Set it before the first request.
    virtual void setDesiredAccuracy(double meters) = 0;

    /// The current status; "not determined" until something has asked for it.
    [[nodiscard]] virtual AuthorizationStatus authorizationStatus() const = 0;

    /// Ends in `authorizationChanged`, even if the status is the same.
    virtual void requestWhenInUseAuthorization() = 0;

    /// Requests one position. Ends in `locationsUpdated` or `failed`. A new request replaces an
    /// open one.
    virtual void requestLocation() = 0;

signals:
    void authorizationChanged();
    /// The newest location is the last one.
    void locationsUpdated(const QList<quorvel::Location> &locations);
    /// The text is the system's description.
    void failed(const QString &description);
};

} // namespace quorvel
