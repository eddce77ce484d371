#include "Core/Keychain/FakeKeychainStore.h"
#include "Core/Keychain/SecItemKeychainStore.h"
#include "Platform/Keychain/FakeKeychain.h"

#include <QTest>

#include <memory>
#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

/// What the shared cases need from either store.
struct Subject
{
    FakeKeychain keychain;
    SecItemKeychainStore real{u"service"_s, keychain};
    FakeKeychainStore fake;
    bool isReal = false;

    KeychainStore &store() { return isReal ? static_cast<KeychainStore &>(real) : fake; }
    void failAtReading()
    {
        keychain.failure = -1;
        fake.failure = KeychainError::unhandledStatus(-1, KeychainError::Operation::Read);
    }
};

} // namespace

/// The same promises for the scripted store and the real one.
class KeychainStoreContractTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isReal");
        QTest::newRow("fake") << false;
        QTest::newRow("real") << true;
    }

    void whatWasNeverSavedIsAbsent()
    {
        QCOMPARE(make()->store().password(u"Cafe"_s), std::nullopt);
    }

    void theSecondPasswordReplacesTheFirst()
    {
        const auto subject = make();
        subject->store().savePassword(u"first"_s, u"Cafe"_s);
        subject->store().savePassword(u"second"_s, u"Cafe"_s);
        QCOMPARE(subject->store().password(u"Cafe"_s), u"second"_s);
    }

    void anEmptyPasswordIsAPassword()
    {
        const auto subject = make();
        subject->store().savePassword(QString(), u"Cafe"_s);
        QCOMPARE(subject->store().password(u"Cafe"_s), u""_s);
    }

    void namesThatDifferInCaseAreDifferentNetworks()
    {
        const auto subject = make();
        subject->store().savePassword(u"upper"_s, u"Cafe"_s);
        subject->store().savePassword(u"lower"_s, u"cafe"_s);
        QCOMPARE(subject->store().password(u"Cafe"_s), u"upper"_s);
        QCOMPARE(subject->store().password(u"cafe"_s), u"lower"_s);
    }

    void whatWasDeletedIsAbsent()
    {
        const auto subject = make();
        subject->store().savePassword(u"secret"_s, u"Cafe"_s);
        subject->store().deletePassword(u"Cafe"_s);
        subject->store().deletePassword(u"Cafe"_s);
        QCOMPARE(subject->store().password(u"Cafe"_s), std::nullopt);
    }

    void aFailureIsThrown()
    {
        const auto subject = make();
        subject->failAtReading();
        QVERIFY_THROWS_EXCEPTION(KeychainError, (void)subject->store().password(u"Cafe"_s));
    }

private:
    static std::unique_ptr<Subject> make()
    {
        QFETCH_GLOBAL(const bool, isReal);
        auto subject = std::make_unique<Subject>();
        subject->isReal = isReal;
        return subject;
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::KeychainStoreContractTest)
#include "KeychainStoreContractTest.moc"
