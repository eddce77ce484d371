#include "Core/Keychain/SecItemKeychainStore.h"

#include "Core/Keychain/KeychainError.h"
#include "Platform/Keychain/FakeKeychain.h"

#include <QTest>

#include <functional>
#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

using Operation = KeychainError::Operation;

namespace {

const QString service = u"com.zantho.quorvel.wifi"_s;

/// Returns the failure of an action. A test that expects one fails without it.
KeychainError failureOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const KeychainError &error) {
        return error;
    }
    return KeychainError::unhandledStatus(KeychainStatus::success, Operation::Delete);
}

} // namespace

class SecItemKeychainStoreTest final : public QObject
{
    Q_OBJECT

private slots:
    void theProgramsServiceIsNamed()
    {
        QCOMPARE(QString(SecItemKeychainStore::wifiService), service);
    }

    void savingAddsAnItemWithAllItsAttributes()
    {
        FakeKeychain keychain;
        SecItemKeychainStore(service, keychain).savePassword(u"mật khẩu"_s, u"Quán \"x\""_s);
        const KeychainItem item{.identity = {.service = service, .account = u"Quán \"x\""_s},
                                .valueData = "m\u1eadt kh\u1ea9u",
                                .accessible = KeychainItem::Accessible::AfterFirstUnlock,
                                .synchronizable = KeychainItem::Synchronizable::No};
        QCOMPARE(keychain.items.size(), 1);
        QVERIFY(keychain.items.constFirst() == item);
        QCOMPARE(keychain.calls, QStringList(u"add"_s));
    }

    void savingAgainUpdatesTheValueAndNothingElse()
    {
        FakeKeychain keychain;
        keychain.items.append({.identity = {.service = service, .account = u"Cafe"_s},
                               .valueData = "first",
                               .accessible = KeychainItem::Accessible::WhenUnlocked,
                               .synchronizable = KeychainItem::Synchronizable::Yes});
        KeychainItem expected = keychain.items.constFirst();
        expected.valueData = "second";
        SecItemKeychainStore(service, keychain).savePassword(u"second"_s, u"Cafe"_s);
        QCOMPARE(keychain.items.size(), 1);
        QVERIFY(keychain.items.constFirst() == expected);
        QCOMPARE(keychain.calls, QStringList({u"add"_s, u"update"_s}));
    }

    void aPasswordHasNoTerminator()
    {
        FakeKeychain keychain;
        SecItemKeychainStore store(service, keychain);
        store.savePassword(QString(), u"empty"_s);
        store.savePassword(u"a\0b"_s, u"with a NUL"_s);
        QCOMPARE(keychain.items.at(0).valueData, QByteArray());
        QCOMPARE(keychain.items.at(1).valueData, QByteArray("a\0b", 3));
    }

    void anyOtherStatusOfTheAdditionIsThrown_data() { addFailures(); }
    void anyOtherStatusOfTheAdditionIsThrown()
    {
        QFETCH(const KeychainStatus::Code, status);
        FakeKeychain keychain;
        keychain.addFailure = status;
        SecItemKeychainStore store(service, keychain);
        const auto error = failureOf([&] { store.savePassword(u"secret"_s, u"Cafe"_s); });
        QVERIFY(error == KeychainError::unhandledStatus(status, Operation::Save));
        QCOMPARE(keychain.calls, QStringList(u"add"_s));
        QVERIFY(keychain.items.isEmpty());
    }

    void anyStatusOfTheUpdateIsThrownAndKeepsTheEarlierValue_data()
    {
        addFailures();
        QTest::newRow("duplicate, again") << KeychainStatus::duplicateItem;
    }
    void anyStatusOfTheUpdateIsThrownAndKeepsTheEarlierValue()
    {
        QFETCH(const KeychainStatus::Code, status);
        FakeKeychain keychain;
        SecItemKeychainStore store(service, keychain);
        store.savePassword(u"first"_s, u"Cafe"_s);
        keychain.calls.clear();
        keychain.addFailure = KeychainStatus::duplicateItem;
        keychain.failure = status;
        const auto error = failureOf([&] { store.savePassword(u"second"_s, u"Cafe"_s); });
        QVERIFY(error == KeychainError::unhandledStatus(status, Operation::Save));
        QCOMPARE(keychain.calls, QStringList({u"add"_s, u"update"_s}));
        QCOMPARE(keychain.items.constFirst().valueData, QByteArray("first"));
    }

    void readingAsksOnce()
    {
        FakeKeychain keychain;
        SecItemKeychainStore store(service, keychain);
        store.savePassword(u"secret"_s, u"Cafe"_s);
        keychain.calls.clear();
        QCOMPARE(store.password(u"Cafe"_s), u"secret"_s);
        QCOMPARE(keychain.calls, QStringList(u"copyMatching"_s));
    }

    void onlyAMissingItemReadsAsAbsent()
    {
        FakeKeychain keychain;
        SecItemKeychainStore store(service, keychain);
        QCOMPARE(store.password(u"Cafe"_s), std::nullopt);
    }

    void anyOtherStatusOfTheReadingIsThrown_data()
    {
        QTest::addColumn<KeychainStatus::Code>("status");
        for (const auto status :
             {KeychainStatus::interactionNotAllowed, KeychainStatus::notAvailable,
              KeychainStatus::duplicateItem, KeychainStatus::noDefaultKeychain, -1, 1})
            QTest::addRow("%d", status) << status;
    }
    void anyOtherStatusOfTheReadingIsThrown()
    {
        QFETCH(const KeychainStatus::Code, status);
        FakeKeychain keychain;
        keychain.failure = status;
        SecItemKeychainStore store(service, keychain);
        const auto error = failureOf([&] { (void)store.password(u"Cafe"_s); });
        QVERIFY(error == KeychainError::unhandledStatus(status, Operation::Read));
    }

    void textReadsBackToTheLetter_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QByteArray("") << u""_s;
        QTest::newRow("Vietnamese") << QByteArray("m\u1eadt kh\u1ea9u") << u"mật khẩu"_s;
        QTest::newRow("emoji") << QByteArray("\U0001f512") << u"🔒"_s;
        QTest::newRow("NUL inside") << QByteArray("a\0b", 3) << u"a\0b"_s;
        QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf"
                                                       "a")
                                         << u"\ufeff"
                                            "a"_s;
        QTest::newRow("blanks") << QByteArray(" a\n") << u" a\n"_s;
        QTest::newRow("largest code point") << QByteArray("\xf4\x8f\xbf\xbf") << u"\U0010ffff"_s;
        QTest::newRow("replacement character") << QByteArray("\xef\xbf\xbd") << u"\ufffd"_s;
    }
    void textReadsBackToTheLetter()
    {
        QFETCH(const QByteArray, bytes);
        FakeKeychain keychain;
        keychain.items.append({.identity = {service, u"Cafe"_s}, .valueData = bytes});
        const auto password = SecItemKeychainStore(service, keychain).password(u"Cafe"_s);
        QVERIFY(password);
        QTEST(*password, "text");
    }

    void bytesThatAreNoTextAreAnUnexpectedFormat_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("never in UTF-8") << QByteArray("\xff\xfe\x01");
        QTest::newRow("Latin-1") << QByteArray("caf\xe9");
        QTest::newRow("Latin-1 in the middle") << QByteArray("caf\xe9 1");
        QTest::newRow("cut short") << QByteArray("a\xe1\xba");
        QTest::newRow("continuation alone") << QByteArray("\x80");
        QTest::newRow("longer than needed") << QByteArray("\xc0\xaf");
        QTest::newRow("surrogate") << QByteArray("\xed\xa0\x80");
        QTest::newRow("beyond the last code point") << QByteArray("\xf4\x90\x80\x80");
    }
    void bytesThatAreNoTextAreAnUnexpectedFormat()
    {
        QFETCH(const QByteArray, bytes);
        FakeKeychain keychain;
        keychain.items.append({.identity = {service, u"Cafe"_s}, .valueData = bytes});
        SecItemKeychainStore store(service, keychain);
        const auto error = failureOf([&] { (void)store.password(u"Cafe"_s); });
        QVERIFY(error == KeychainError::unexpectedItemFormat());
    }

    void aFoundItemWithoutDataIsAnUnexpectedFormat()
    {
        FakeKeychain keychain;
        keychain.givesData = false;
        SecItemKeychainStore store(service, keychain);
        store.savePassword(u"secret"_s, u"Cafe"_s);
        const auto error = failureOf([&] { (void)store.password(u"Cafe"_s); });
        QVERIFY(error == KeychainError::unexpectedItemFormat());
    }

    void deletingRemovesTheNetworksItemAlone()
    {
        FakeKeychain keychain;
        SecItemKeychainStore store(service, keychain);
        store.savePassword(u"a"_s, u"Cafe"_s);
        store.savePassword(u"b"_s, u"cafe"_s);
        store.deletePassword(u"Cafe"_s);
        QCOMPARE(keychain.items.size(), 1);
        QCOMPARE(keychain.items.constFirst().identity.account, u"cafe"_s);
    }

    void deletingWhatIsNotThereIsFine()
    {
        FakeKeychain keychain;
        SecItemKeychainStore(service, keychain).deletePassword(u"Cafe"_s);
        QCOMPARE(keychain.calls, QStringList(u"remove"_s));
    }

    void anyOtherStatusOfTheDeletionIsThrown_data()
    {
        QTest::addColumn<KeychainStatus::Code>("status");
        QTest::newRow("locked") << KeychainStatus::interactionNotAllowed;
        QTest::newRow("without a keychain") << KeychainStatus::notAvailable;
    }
    void anyOtherStatusOfTheDeletionIsThrown()
    {
        QFETCH(const KeychainStatus::Code, status);
        FakeKeychain keychain;
        keychain.failure = status;
        SecItemKeychainStore store(service, keychain);
        const auto error = failureOf([&] { store.deletePassword(u"Cafe"_s); });
        QVERIFY(error == KeychainError::unhandledStatus(status, Operation::Delete));
    }

    void storesOfOtherServicesKeepApart()
    {
        FakeKeychain keychain;
        SecItemKeychainStore(service, keychain).savePassword(u"a"_s, u"Cafe"_s);
        SecItemKeychainStore other(u"com.example"_s, keychain);
        QCOMPARE(other.password(u"Cafe"_s), std::nullopt);
        other.savePassword(u"b"_s, u"Cafe"_s);
        QCOMPARE(keychain.items.size(), 2);
        QCOMPARE(SecItemKeychainStore(service, keychain).password(u"Cafe"_s), u"a"_s);
    }

    void aFailureNeverHoldsTheSecret()
    {
        FakeKeychain keychain;
        keychain.failure = KeychainStatus::interactionNotAllowed;
        SecItemKeychainStore store(service, keychain);
        const auto error = failureOf([&] { store.savePassword(u"hunter2"_s, u"Cafe"_s); });
        QCOMPARE(error.errorDescription(), u"Keychain save failed (-25308): "
                                           "User interaction is not allowed."_s);
    }

private:
    static void addFailures()
    {
        QTest::addColumn<KeychainStatus::Code>("status");
        QTest::newRow("locked") << KeychainStatus::interactionNotAllowed;
        QTest::newRow("without a keychain") << KeychainStatus::notAvailable;
        QTest::newRow("without a default") << KeychainStatus::noDefaultKeychain;
        QTest::newRow("not found") << KeychainStatus::itemNotFound;
        QTest::newRow("canceled") << KeychainStatus::userCanceled;
        QTest::newRow("unknown") << -1;
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SecItemKeychainStoreTest)
#include "SecItemKeychainStoreTest.moc"
