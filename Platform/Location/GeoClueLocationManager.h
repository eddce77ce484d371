#pragma once

#include "Platform/Location/GeoClueRequest.h"
#include "Platform/Location/LocationManager.h"

#include <QDeadlineTimer>
#include <QPointer>

#include <chrono>

namespace quorvel {

/// Locations from the GeoClue daemon. Only a start tells whether the daemon allows one, so the
/// status is not determined until a start of this process was answered.
class GeoClueLocationManager final : public LocationManager
{
    Q_OBJECT

public:
    struct Limits
    {
        GeoClueLimits request;
        /// If an authorisation has just failed because of the daemon, a request for a position
        /// within this time fails with the same description. The user does not wait twice.
        std::chrono::milliseconds sameFailure{1'000};
    };

    explicit GeoClueLocationManager(const QDBusConnection &bus, Limits limits,
                                    QObject *parent = nullptr);
    explicit GeoClueLocationManager(const QDBusConnection &bus, QObject *parent = nullptr);

    /// Deliberate: the value is not used. Only the daemon's exact level is precise enough; every
    /// other level is off by a kilometre.
    void setDesiredAccuracy(double meters) override;

    /// The status is "refused" only while `authorizationChanged` is emitted. The daemon does not
    /// announce that the user has allowed the location since, so the next request must ask again.
    /// An absent or silent daemon refuses nothing: the status is authorized, and the position
    /// fails.
    [[nodiscard]] AuthorizationStatus authorizationStatus() const override { return m_status; }

    void requestWhenInUseAuthorization() override;
    void requestLocation() override;

private:
    [[nodiscard]] GeoClueRequest *begin(QPointer<GeoClueRequest> &place, GeoClueRequest::Goal goal);
    void settle(AuthorizationStatus status);
    void refuse(AuthorizationStatus status);

    QDBusConnection m_bus;
    Limits m_limits;
    AuthorizationStatus m_status = AuthorizationStatus::NotDetermined;
    QPointer<GeoClueRequest> m_permission;
    QPointer<GeoClueRequest> m_position;
    QString m_failure;
    QDeadlineTimer m_failureHolds{0};
};

} // namespace quorvel
