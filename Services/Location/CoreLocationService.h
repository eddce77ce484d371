#pragma once

#include "Core/Support/Tasks/OneShotSlot.h"
#include "Platform/Location/Location.h"
#include "Services/Location/LocationService.h"

#include <QObject>

#include <memory>

namespace quorvel {

/// Turns the location manager's callbacks into the service's two operations. Each operation has one
/// waiter: callers must not overlap their requests. A call whose waiter is replaced never returns.
class CoreLocationService final : public QObject, public LocationService
{
    Q_OBJECT

public:
    explicit CoreLocationService(std::unique_ptr<LocationManager> manager);

    [[nodiscard]] Task<AuthorizationStatus> requestAuthorization() override;
    [[nodiscard]] Task<Location> currentLocation() override;

private:
    void didChangeAuthorization();
    void didUpdateLocations(const QList<Location> &locations);
    void didFail(const QString &description);

    std::unique_ptr<LocationManager> m_manager;
    OneShotSlot<Location> m_locationWaiter;
    OneShotSlot<AuthorizationStatus> m_authorizationWaiter;
};

} // namespace quorvel
