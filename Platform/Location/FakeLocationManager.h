#pragma once

#include "Platform/Location/LocationManager.h"

#include <QStringList>

namespace quorvel {

/// A location manager for tests. It records its calls; the test answers by emitting its signals.
class FakeLocationManager final : public LocationManager
{
    Q_OBJECT

public:
    using LocationManager::LocationManager;

    void setDesiredAccuracy(double meters) override
    {
        calls.append(QStringLiteral("setDesiredAccuracy(%1)").arg(meters));
    }
    [[nodiscard]] AuthorizationStatus authorizationStatus() const override { return status; }
    void requestWhenInUseAuthorization() override
    {
        calls.append(QStringLiteral("requestWhenInUseAuthorization"));
    }
    void requestLocation() override { calls.append(QStringLiteral("requestLocation")); }

    /// Answers as if the user had decided.
    void decide(AuthorizationStatus decision)
    {
        status = decision;
        emit authorizationChanged();
    }

    AuthorizationStatus status = AuthorizationStatus::NotDetermined;
    QStringList calls;
};

} // namespace quorvel
