#include "Platform/Location/FakeLocationManager.h"
#include "Platform/Location/Location.h"
#include "Tests/Contract/LocationManager/LocationManagerContract.h"

#include <QTest>

#include <memory>
#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

/// Scripts the fake as the services' tests do.
class FakeLocationManagerContractTest final : public LocationManagerContract
{
    Q_OBJECT

    std::unique_ptr<LocationManager> make() override
    {
        auto manager = std::make_unique<FakeLocationManager>();
        m_manager = manager.get();
        m_decision = AuthorizationStatus::AuthorizedAlways;
        return manager;
    }

    void refuse() override { m_decision = AuthorizationStatus::Denied; }
    void standAt(double latitude, double longitude, double accuracyMeters) override
    {
        m_place = {.latitude = latitude,
                   .longitude = longitude,
                   .accuracyMeters = accuracyMeters,
                   .timestamp = {}};
    }
    void getLost() override { m_place.reset(); }

    void answer() override
    {
        if (m_manager->status != m_decision)
            m_manager->decide(m_decision);
        if (m_manager->calls.last() != u"requestLocation"_s)
            return;
        if (m_place && m_decision == AuthorizationStatus::AuthorizedAlways)
            emit m_manager->locationsUpdated({Location(), *m_place});
        else
            emit m_manager->failed(u"Nowhere."_s);
    }

    FakeLocationManager *m_manager = nullptr;
    AuthorizationStatus m_decision = AuthorizationStatus::NotDetermined;
    std::optional<Location> m_place;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeLocationManagerContractTest)
#include "FakeLocationManagerContractTest.moc"
