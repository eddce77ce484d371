#include "Platform/LoginItem/FakeLoginItem.h"
#include "Tests/Contract/LoginItem/LoginItemContract.h"

#include <QTest>

#include <memory>

namespace quorvel::tests {

class FakeLoginItemContractTest final : public LoginItemContract
{
    Q_OBJECT

    std::unique_ptr<LoginItem> make() override
    {
        auto item = std::make_unique<FakeLoginItem>();
        m_item = item.get();
        return item;
    }
    void breakIt() override
    {
        m_item->failure.emplace(LoginItemError::Operation::Register, QStringLiteral("No."));
    }
    void switchOff() override { m_item->scriptedStatus = LoginItem::Status::RequiresApproval; }

    FakeLoginItem *m_item = nullptr;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeLoginItemContractTest)
#include "FakeLoginItemContractTest.moc"
