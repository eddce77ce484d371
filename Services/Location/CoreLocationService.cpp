#include "Services/Location/CoreLocationService.h"

#include "Core/Support/AppError.h"

namespace quorvel {

CoreLocationService::CoreLocationService(std::unique_ptr<LocationManager> manager)
    : m_manager(std::move(manager))
{
    connect(m_manager.get(), &LocationManager::authorizationChanged, this,
            &CoreLocationService::didChangeAuthorization);
    // Queued: a callback touches the waiters in a turn of its own, and not at all once the service
    // is gone.
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
    // Order: the waiter is there before the manager can answer.
    auto decision = m_authorizationWaiter.wait();
    m_manager->requestWhenInUseAuthorization();
    const auto decided = co_await decision;
    co_return decided;
}

Task<Location> CoreLocationService::currentLocation()
{
    // Deliberate: authorized while in use is returned by requestAuthorization as it is, but does
    // not let a position through.
    if (m_manager->authorizationStatus() != AuthorizationStatus::AuthorizedAlways)
        throw AppError::locationDenied();
    auto answer = m_locationWaiter.wait();
    m_manager->requestLocation();
    const auto location = co_await answer;
    co_return location;
}

void CoreLocationService::didChangeAuthorization()
{
    // The status is the one at the time of the callback; the manager may have forgotten a refusal
    // by the next turn.
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
