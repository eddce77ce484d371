#include "Services/Location/CoreLocationService.h"

#include "Core/Support/AppError.h"
#include "Platform/Location/Location.h"

#include <QMetaObject>

#include <memory>
#include <utility>

namespace quorvel {

CoreLocationService::CoreLocationService(std::unique_ptr<LocationManager> manager)
    : m_manager(std::move(manager))
{
    connect(m_manager.get(), &LocationManager::authorizationChanged, this,
            &CoreLocationService::didChangeAuthorization);
    // Queued: the callback runs in its own turn of the event loop, and never after the service is
    // destroyed.
    connect(m_manager.get(), &LocationManager::locationsUpdated, this,
            &CoreLocationService::didUpdateLocations, Qt::QueuedConnection);
    connect(m_manager.get(), &LocationManager::failed, this, &CoreLocationService::didFail,
            Qt::QueuedConnection);
    m_manager->setDesiredAccuracy(hundredMetersAccuracy);
}

Task<AuthorizationStatus> CoreLocationService::requestAuthorization()
{
    const auto status = m_manager->authorizationStatus();
    if (status != AuthorizationStatus::NotDetermined)
        co_return status;
    // Order: the waiter must exist before the manager can answer.
    auto decision = m_authorizationWaiter.wait();
    m_manager->requestWhenInUseAuthorization();
    const auto decided = co_await decision;
    co_return decided;
}

Task<Location> CoreLocationService::currentLocation()
{
    // Deliberate: requestAuthorization returns "authorized while in use" unchanged, but that status
    // does not allow a position.
    if (m_manager->authorizationStatus() != AuthorizationStatus::AuthorizedAlways)
        throw AppError::locationDenied();
    auto answer = m_locationWaiter.wait();
    m_manager->requestLocation();
    const auto location = co_await answer;
    co_return location;
}

void CoreLocationService::didChangeAuthorization()
{
    // Keep the status of the callback: by the next turn the manager may have forgotten a refusal.
    const auto status = m_manager->authorizationStatus();
    if (status == AuthorizationStatus::NotDetermined)
        return;
    const auto finish = [this, status] { m_authorizationWaiter.finish(status); };
    QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
}

void CoreLocationService::didUpdateLocations(const QList<Location> &locations)
{
    if (!locations.isEmpty())
        m_locationWaiter.finish(locations.last());
}

void CoreLocationService::didFail(const QString &description)
{
    m_locationWaiter.fail(AppError::locationFailed(description));
}

} // namespace quorvel
