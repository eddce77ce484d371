#include "Tests/Contract/LoginItem/LoginItemContract.h"

#include "Platform/LoginItem/LoginItemError.h"

#include <QTest>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

using Status = LoginItem::Status;

void LoginItemContract::atFirstNothingIsRegistered()
{
    QCOMPARE(m_item->status(), Status::NotRegistered);
}

void LoginItemContract::registeringEnables()
{
    m_item->registerItem();
    QCOMPARE(m_item->status(), Status::Enabled);
    m_item->registerItem();
    QCOMPARE(m_item->status(), Status::Enabled);
}

void LoginItemContract::unregisteringTakesItBack()
{
    m_item->registerItem();
    m_item->unregisterItem();
    QCOMPARE(m_item->status(), Status::NotRegistered);
    m_item->unregisterItem();
    QCOMPARE(m_item->status(), Status::NotRegistered);
}

void LoginItemContract::registeringOverrulesAnEarlierSwitchingOff()
{
    m_item->registerItem();
    switchOff();
    QCOMPARE(m_item->status(), Status::RequiresApproval);
    m_item->registerItem();
    QCOMPARE(m_item->status(), Status::Enabled);
}

void LoginItemContract::aFailedRegistrationChangesNothing()
{
    breakIt();
    try {
        m_item->registerItem();
    } catch (const LoginItemError &error) {
        QVERIFY(error.errorDescription().startsWith(
            u"Quorvel could not be added to the programs that start at login: "_s));
        QCOMPARE(m_item->status(), Status::NotRegistered);
        return;
    }
    QFAIL("the registration did not fail");
}

} // namespace quorvel::tests
