#include "Platform/Keychain/SecretServiceKeychain.h"

#include "Tests/World/Daemons/KeyringWorld.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QTest>

#include <array>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

const KeychainIdentity cafe{.service = u"com.zantho.quorvel.wifi"_s, .account = u"Cafe"_s};
const KeychainIdentity other{.service = u"com.zantho.quorvel.wifi"_s, .account = u"Other"_s};

/// Also asks the service, but without a limit of our own, so it waits for the bus library's.
class LongerQuestion final
{
public:
    LongerQuestion()
        : m_answer(bus().asyncCall(QDBusMessage::createMethodCall(
              u"org.freedesktop.secrets"_s, u"/org/freedesktop/secrets"_s,
              u"org.freedesktop.DBus.Peer"_s, u"Ping"_s)))
    {}
    Q_DISABLE_COPY_MOVE(LongerQuestion)
    ~LongerQuestion() { QDBusConnection::disconnectFromBus(name); }

    [[nodiscard]] bool isWaiting() const { return !m_answer.isFinished(); }

private:
    static QDBusConnection bus()
    {
        return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                             name);
    }

    static constexpr auto name = "longer"_L1;
    QDBusPendingCall m_answer;
};

} // namespace

/// The keychain with a real daemon in different states.
class SecretServiceKeychainTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_keychain = std::make_unique<SecretServiceKeychain>();
        m_world.tell("forget");
    }

    void aLockedKeyringIsAFailureAndNeverAQuestion()
    {
        startWithItem();
        m_world.tell("lock");
        everyOperationAnswers(KeychainStatus::interactionNotAllowed);
        QCOMPARE(m_keychain->add({.identity = other, .valueData = "x"}),
                 KeychainStatus::interactionNotAllowed);
    }

    /// The attributes identify the item, and they can be searched while it is locked.
    void inALockedKeyringADuplicateIsOneStill()
    {
        startWithItem();
        m_world.tell("lock");
        QCOMPARE(m_keychain->add({.identity = cafe, .valueData = "x"}),
                 KeychainStatus::duplicateItem);
        QCOMPARE(m_keychain->copyMatching(other).status, KeychainStatus::itemNotFound);
    }

    void anUnlockedKeyringAnswersAgain()
    {
        startWithItem();
        m_world.tell("lock");
        QCOMPARE(m_keychain->update(cafe, "x"), KeychainStatus::interactionNotAllowed);
        QCOMPARE(m_keychain->remove(cafe), KeychainStatus::interactionNotAllowed);
        m_world.tell("unlock");
        QCOMPARE(value(cafe), QByteArray("secret"));
    }

    /// As in the history: each visit reads on its own thread, while the panel reads on another.
    void otherThreadsReadByKeychainsOfTheirOwn()
    {
        startWithItem();
        QCOMPARE(value(cafe), QByteArray("secret"));
        constexpr int readings = 20;
        std::array<QByteArray, 2> read;
        std::array<std::thread, 2> threads;
        for (size_t index = 0; index < threads.size(); ++index)
            threads[index] = std::thread([&place = read[index]] {
                for (int count = 0; count < readings; ++count) {
                    const auto own = Keychain::makeDetached();
                    place += own->copyMatching(cafe).valueData.value_or("nothing");
                }
            });
        for (int count = 0; count < readings; ++count)
            QCOMPARE(value(cafe), QByteArray("secret"));
        for (auto &thread : threads)
            thread.join();
        for (const auto &all : read)
            QCOMPARE(all, QByteArray("secret").repeated(readings));
    }

    void withoutAKeyringNewItemsHaveNoPlace()
    {
        m_world.tell("start_without_keyring");
        QCOMPARE(m_keychain->add({.identity = cafe, .valueData = "x"}),
                 KeychainStatus::noDefaultKeychain);
        QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::itemNotFound);
    }

    void withoutAServiceThereIsNoKeychain() { everyOperationAnswers(KeychainStatus::notAvailable); }

    void aServiceThatAppearsLaterIsUsed()
    {
        QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::notAvailable);
        m_world.tell("start");
        QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::itemNotFound);
    }

    void aServiceThatNeverAnswersIsGivenUp()
    {
        startWithItem();
        m_world.tell("stop");
        for (const Operation &operate : operationsOn(cafe)) {
            const LongerQuestion question;
            QCOMPARE(operate(), KeychainStatus::notAvailable);
            QVERIFY(question.isWaiting());
        }
        m_world.tell("resume");
        QVERIFY(m_keychain->copyMatching(other).status != KeychainStatus::notAvailable);
    }

    void aServiceThatNeverAnsweredBeforeIsGivenUpAsWell()
    {
        m_world.tell("start");
        m_world.tell("stop");
        const LongerQuestion question;
        QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::notAvailable);
        QVERIFY(question.isWaiting());
    }

    void aServiceThatDiedIsAbsent()
    {
        startWithItem();
        m_world.tell("kill");
        everyOperationAnswers(KeychainStatus::notAvailable);
    }

    void aServiceThatWasStartedAgainIsTheSameKeychain()
    {
        startWithItem();
        m_world.tell("kill");
        m_world.tell("start");
        QCOMPARE(value(cafe), QByteArray("secret"));
        QCOMPARE(m_keychain->update(cafe, "changed"), KeychainStatus::success);
        m_world.tell("absent");
        m_world.tell("start");
        QCOMPARE(value(cafe), QByteArray("changed"));
        QCOMPARE(m_keychain->remove(cafe), KeychainStatus::success);
    }

    /// The service's texts end at the first NUL, so two such names would be one item.
    void aNameThatTheServiceCannotHoldIsAnInvalidParameter_data()
    {
        QTest::addColumn<QString>("account");
        QTest::newRow("NUL inside") << u"Cafe\0x"_s;
        QTest::newRow("32 NULs") << QString(32, QChar(u'\0'));
        QTest::newRow("half a character") << QString(QChar(0xd83d));
    }

    void aNameThatTheServiceCannotHoldIsAnInvalidParameter()
    {
        QFETCH(const QString, account);
        startWithItem();
        const KeychainIdentity identity{.service = cafe.service, .account = account};
        everyOperationAnswers(KeychainStatus::invalidParameter, identity);
        QCOMPARE(m_keychain->add({.identity = identity, .valueData = "x"}),
                 KeychainStatus::invalidParameter);
        QCOMPARE(value(cafe), QByteArray("secret"));
    }

private:
    void startWithItem()
    {
        m_world.tell("start");
        QCOMPARE(m_keychain->add({.identity = cafe, .valueData = "secret"}),
                 KeychainStatus::success);
    }

    QByteArray value(const KeychainIdentity &identity)
    {
        return m_keychain->copyMatching(identity).valueData.value_or("nothing");
    }

    using Operation = std::function<KeychainStatus::Code()>;

    /// All operations on an item that may exist and, for the usual item, adding another one.
    std::vector<Operation> operationsOn(const KeychainIdentity &identity)
    {
        std::vector<Operation> operations{
            [=, this] { return m_keychain->copyMatching(identity).status; },
            [=, this] { return m_keychain->update(identity, "x"); },
            [=, this] { return m_keychain->remove(identity); }};
        if (identity == cafe)
            operations.push_back(
                [this] { return m_keychain->add({.identity = other, .valueData = "x"}); });
        return operations;
    }

    void everyOperationAnswers(KeychainStatus::Code status, const KeychainIdentity &identity = cafe)
    {
        for (const Operation &operate : operationsOn(identity))
            QCOMPARE(operate(), status);
    }

    KeyringWorld m_world;
    std::unique_ptr<SecretServiceKeychain> m_keychain;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SecretServiceKeychainTest)
#include "SecretServiceKeychainTest.moc"
