#include "Tests/Contract/LocationManager/LocationManagerContract.h"

#include "Tests/Support/Patience.h"

#include <QCoreApplication>
#include <QTest>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

constexpr auto permission = &LocationManager::requestWhenInUseAuthorization;
constexpr auto position = &LocationManager::requestLocation;
const QString granted = u"status 3"_s;
const QString denied = u"status 2"_s;
const QString located = u"located"_s;
const QString failed = u"failed"_s;

} // namespace

void LocationManagerContract::init()
{
    m_told.clear();
    m_locations.clear();
    m_words.clear();
    m_manager = make();
    connect(m_manager.get(), &LocationManager::authorizationChanged, this,
            [this] { m_told.append(u"status %1"_s.arg(int(m_manager->authorizationStatus()))); });
    connect(m_manager.get(), &LocationManager::locationsUpdated, this,
            [this](const QList<Location> &locations) {
                m_locations = locations;
                m_told.append(located);
            });
    connect(m_manager.get(), &LocationManager::failed, this, [this](const QString &words) {
        m_words = words;
        m_told.append(failed);
    });
    m_manager->setDesiredAccuracy(hundredMetersAccuracy);
    standAt(10.7769, 106.7009, 25);
}

void LocationManagerContract::atFirstTheStatusIsNotDetermined()
{
    QCOMPARE(m_manager->authorizationStatus(), AuthorizationStatus::NotDetermined);
}

void LocationManagerContract::aPermissionIsToldOnceAndStays()
{
    QCOMPARE(toldAfter(permission, granted), QStringList(granted));
    QCOMPARE(m_manager->authorizationStatus(), AuthorizationStatus::AuthorizedAlways);
}

void LocationManagerContract::aRefusalIsTheStatusWhileItIsTold()
{
    refuse();
    QCOMPARE(toldAfter(permission, denied), QStringList(denied));
    QVERIFY(m_manager->authorizationStatus() != AuthorizationStatus::AuthorizedAlways);
}

void LocationManagerContract::aPositionIsToldOnceTheNewestLast()
{
    QCOMPARE(toldAfter(permission, granted), QStringList(granted));
    QCOMPARE(toldAfter(position, located), (QStringList{granted, located}));
    QCOMPARE(m_locations.last().latitude, 10.7769);
    QCOMPARE(m_locations.last().longitude, 106.7009);
    QCOMPARE(m_locations.last().accuracyMeters, 25.0);
}

void LocationManagerContract::everyRequestHasItsPosition()
{
    QCOMPARE(toldAfter(permission, granted), QStringList(granted));
    for (int count = 1; count <= 3; ++count) {
        m_told.clear();
        QCOMPARE(toldAfter(position, located), QStringList(located));
    }
}

void LocationManagerContract::aMachineThatIsLostFailsInWords()
{
    getLost();
    QCOMPARE(toldAfter(permission, granted), QStringList(granted));
    QCOMPARE(toldAfter(position, failed), (QStringList{granted, failed}));
    QVERIFY(!m_words.isEmpty());
}

void LocationManagerContract::aRefusedPositionFailsInWords()
{
    refuse();
    QCOMPARE(toldAfter(position, failed), (QStringList{denied, failed}));
    QVERIFY(!m_words.isEmpty());
}

void LocationManagerContract::aNewRequestTakesThePlaceOfAnOpenOne()
{
    QCOMPARE(toldAfter(permission, granted), QStringList(granted));
    m_manager->requestLocation();
    QCOMPARE(toldAfter(position, located), (QStringList{granted, located}));
}

QStringList LocationManagerContract::toldAfter(void (LocationManager::*request)(),
                                               const QString &last)
{
    const auto before = m_told.size();
    (m_manager.get()->*request)();
    if (m_told.size() != before)
        return {u"told before the request returned"_s};
    answer();
    const auto hasEnded = [&] { return m_told.size() > before && m_told.last() == last; };
    static_cast<void>(comes(hasEnded));
    QCoreApplication::processEvents();
    return m_told;
}

} // namespace quorvel::tests
