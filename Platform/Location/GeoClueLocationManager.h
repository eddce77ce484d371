#pragma once

#include "Platform/Location/GeoClueRequest.h"
#include "Platform/Location/LocationManager.h"

#include <QDeadlineTimer>
#include <QPointer>

namespace quorvel {

/// Locations from the GeoClue daemon. It can only be asked by starting: the status is not
/// determined until a start of this process was answered.
class GeoClueLocationManager final : public LocationManager
{
    Q_OBJECT

public:
    struct Limits
    {
        GeoClueLimits request;
        /// A position asked for so soon after an authorisation that ended in a failure of the
        /// daemon fails with the same words, instead of letting the user wait as long again.
        std::chrono::milliseconds sameFailure{1'000};
    };

    explicit GeoClueLocationManager(const QDBusConnection &bus, Limits limits,
                                    QObject *parent = nullptr);
    explicit GeoClueLocationManager(const QDBusConnection &bus, QObject *parent = nullptr);

    /// Deliberate: kept nowhere. Any level of the daemon but the exact one is off by a kilometre.
    void setDesiredAccuracy(double meters) override;

    /// A refusal is there only while `authorizationChanged` tells it: the daemon does not announce
    /// that the user has lifted it, so that the next request has to ask anew. A daemon that is
    /// absent or silent refuses nothing: the status is authorized, and the position fails.
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
