#include "Platform/Location/GeoClueLocationManager.h"

#include <QMetaObject>

namespace quorvel {

GeoClueLocationManager::GeoClueLocationManager(const QDBusConnection &bus, Limits limits,
                                               QObject *parent)
    : LocationManager(parent)
    , m_bus(bus)
    , m_limits(limits)
{}

GeoClueLocationManager::GeoClueLocationManager(const QDBusConnection &bus, QObject *parent)
    : GeoClueLocationManager(bus, Limits(), parent)
{}

void GeoClueLocationManager::setDesiredAccuracy(double) {}

void GeoClueLocationManager::requestWhenInUseAuthorization()
{
    const auto *request = begin(m_permission, GeoClueRequest::Goal::Permission);
    connect(request, &GeoClueRequest::granted, this,
            [this] { settle(AuthorizationStatus::AuthorizedAlways); });
    connect(request, &GeoClueRequest::refused, this, &GeoClueLocationManager::refuse);
    connect(request, &GeoClueRequest::failed, this, [this](const QString &description) {
        m_failure = description;
        m_failureHolds.setRemainingTime(m_limits.sameFailure);
        settle(AuthorizationStatus::AuthorizedAlways);
    });
}

void GeoClueLocationManager::requestLocation()
{
    if (!m_failureHolds.hasExpired()) {
        m_failureHolds.setRemainingTime(0);
        const auto fail = [this] { emit failed(m_failure); };
        QMetaObject::invokeMethod(this, fail, Qt::QueuedConnection);
        return;
    }
    const auto *request = begin(m_position, GeoClueRequest::Goal::Position);
    connect(request, &GeoClueRequest::located, this, [this](const Location &location) {
        if (m_status != AuthorizationStatus::AuthorizedAlways)
            settle(AuthorizationStatus::AuthorizedAlways);
        emit locationsUpdated({location});
    });
    connect(request, &GeoClueRequest::refused, this,
            [this](AuthorizationStatus status, const QString &description) {
                refuse(status);
                emit failed(description);
            });
    connect(request, &GeoClueRequest::failed, this, &GeoClueLocationManager::failed);
}

GeoClueRequest *GeoClueLocationManager::begin(QPointer<GeoClueRequest> &place,
                                              GeoClueRequest::Goal goal)
{
    if (place) {
        place->disconnect(this);
        place->deleteLater();
    }
    place = new GeoClueRequest(goal, m_bus, m_limits.request, this);
    return place;
}

void GeoClueLocationManager::settle(AuthorizationStatus status)
{
    m_status = status;
    emit authorizationChanged();
}

void GeoClueLocationManager::refuse(AuthorizationStatus status)
{
    settle(status);
    m_status = AuthorizationStatus::NotDetermined;
}

} // namespace quorvel
