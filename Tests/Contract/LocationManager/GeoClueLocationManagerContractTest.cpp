#include "Platform/Bus/SystemBus.h"
#include "Platform/Location/GeoClueLocationManager.h"
#include "Tests/Contract/LocationManager/LocationManagerContract.h"
#include "Tests/World/Daemons/GeoClueWorld.h"

#include <chrono>
#include <memory>

namespace quorvel::tests {

using namespace std::chrono_literals;

namespace {

/// Long enough for a busy machine, and short where the daemon never reports a failure.
const GeoClueLocationManager::Limits limits{
    .request = {.client = 1min, .property = 1min, .start = 1min, .fix = 8s}, .sameFailure = 0ms};

} // namespace

/// Uses the real location daemon.
class GeoClueLocationManagerContractTest final : public LocationManagerContract
{
    Q_OBJECT

    std::unique_ptr<LocationManager> make() override
    {
        tell("mend");
        return std::make_unique<GeoClueLocationManager>(SystemBus::connection(), limits);
    }

    void refuse() override { tell("set_agent_level 0"); }
    void standAt(double latitude, double longitude, double accuracyMeters) override
    {
        tell("stand_at " + QByteArray::number(latitude, 'f') + ' ' +
             QByteArray::number(longitude, 'f') + ' ' + QByteArray::number(accuracyMeters, 'f'));
    }
    void getLost() override { tell("fail 404"); }

    void tell(const QByteArray &command) { QVERIFY(m_world.tell(command)); }

    GeoClueWorld m_world;

private slots:
    void initTestCase() { QCOMPARE(m_world.start(), QString()); }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::GeoClueLocationManagerContractTest)
#include "GeoClueLocationManagerContractTest.moc"
