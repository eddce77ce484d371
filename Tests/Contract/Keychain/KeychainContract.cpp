#include "Tests/Contract/Keychain/KeychainContract.h"

#include <QTest>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

const KeychainIdentity cafe{.service = u"com.zantho.quorvel.wifi"_s, .account = u"Cafe"_s};

KeychainIdentity named(const QString &account)
{
    return {.service = cafe.service, .account = account};
}

KeychainItem item(const KeychainIdentity &identity, const QByteArray &valueData)
{
    return {.identity = identity, .valueData = valueData};
}

} // namespace

void KeychainContract::atFirstNothingIsFound()
{
    QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::itemNotFound);
    QVERIFY(!m_keychain->copyMatching(cafe).valueData);
    QCOMPARE(m_keychain->update(cafe, "x"), KeychainStatus::itemNotFound);
    QCOMPARE(m_keychain->remove(cafe), KeychainStatus::itemNotFound);
    QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::itemNotFound);
}

void KeychainContract::whatWasAddedIsFound()
{
    QCOMPARE(m_keychain->add(item(cafe, "secret")), KeychainStatus::success);
    const auto match = m_keychain->copyMatching(cafe);
    QCOMPARE(match.status, KeychainStatus::success);
    QCOMPARE(match.valueData, QByteArray("secret"));
}

void KeychainContract::addingTwiceIsADuplicateThatChangesNothing()
{
    QCOMPARE(m_keychain->add(item(cafe, "first")), KeychainStatus::success);
    QCOMPARE(m_keychain->add(item(cafe, "second")), KeychainStatus::duplicateItem);
    QCOMPARE(value(cafe), QByteArray("first"));
}

void KeychainContract::anUpdateReplacesTheValue()
{
    QCOMPARE(m_keychain->add(item(cafe, "a long first value")), KeychainStatus::success);
    QCOMPARE(m_keychain->update(cafe, "second"), KeychainStatus::success);
    QCOMPARE(value(cafe), QByteArray("second"));
    QCOMPARE(m_keychain->remove(cafe), KeychainStatus::success);
    QCOMPARE(m_keychain->copyMatching(cafe).status, KeychainStatus::itemNotFound);
}

void KeychainContract::whatWasRemovedIsGoneAndCanBeAddedAgain()
{
    QCOMPARE(m_keychain->add(item(cafe, "first")), KeychainStatus::success);
    QCOMPARE(m_keychain->remove(cafe), KeychainStatus::success);
    QCOMPARE(m_keychain->remove(cafe), KeychainStatus::itemNotFound);
    QCOMPARE(m_keychain->add(item(cafe, "second")), KeychainStatus::success);
    QCOMPARE(value(cafe), QByteArray("second"));
}

void KeychainContract::identitiesThatDifferInOneLetterAreDifferentItems()
{
    const QList<KeychainIdentity> identities{
        cafe,
        named(u"cafe"_s),
        named(u"Cafe "_s),
        named(u"Café"_s),
        named(u"Cafe\u0301"_s),
        named(u""_s),
        {.service = u"com.zantho.quorvel.WIFI"_s, .account = cafe.account}};
    for (const auto &identity : identities)
        QCOMPARE(
            m_keychain->add(item(identity, identity.account.toUtf8() + identity.service.toUtf8())),
            KeychainStatus::success);
    QCOMPARE(m_keychain->remove(named(u"cafe"_s)), KeychainStatus::success);
    for (const auto &identity : identities) {
        if (identity != named(u"cafe"_s))
            QCOMPARE(value(identity), identity.account.toUtf8() + identity.service.toUtf8());
    }
    QCOMPARE(m_keychain->copyMatching(named(u"cafe"_s)).status, KeychainStatus::itemNotFound);
}

void KeychainContract::namesAndValuesComeBackToTheLetter_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QByteArray>("valueData");
    QTest::newRow("empty value") << u"Cafe"_s << QByteArray("");
    QTest::newRow("quotes and Vietnamese")
        << u"Quán \"x\" 'y'"_s << QByteArray("m\u1eadt kh\u1ea9u \"1\"");
    QTest::newRow("emoji") << u"☕️🛜"_s << QByteArray("\U0001f512");
    QTest::newRow("new lines and markup") << u"<b>a\nb</b>\t"_s << QByteArray("\r\n<i>");
    QTest::newRow("empty name") << u""_s << QByteArray("secret");
    QTest::newRow("not UTF-8") << u"Cafe"_s << QByteArray("\xff\xfe\x01");
    QTest::newRow("NULs") << u"Cafe"_s << QByteArray("a\0b\0", 4);
    QTest::newRow("63 characters") << u"Cafe"_s << QByteArray(63, '\\');
    QTest::newRow("100,000 bytes") << u"Cafe"_s << QByteArray(100'000, 'x');
}

void KeychainContract::namesAndValuesComeBackToTheLetter()
{
    QFETCH(const QString, account);
    QFETCH(const QByteArray, valueData);
    QCOMPARE(m_keychain->add(item(named(account), "first")), KeychainStatus::success);
    QCOMPARE(m_keychain->update(named(account), valueData), KeychainStatus::success);
    QCOMPARE(value(named(account)), valueData);
    QCOMPARE(m_keychain->remove(named(account)), KeychainStatus::success);
    QCOMPARE(m_keychain->add(item(named(account), valueData)), KeychainStatus::success);
    QCOMPARE(value(named(account)), valueData);
}

void KeychainContract::manyItemsKeepApart()
{
    const auto identity = [](int i) { return named(u"net %1"_s.arg(i)); };
    for (int i = 0; i < 40; ++i)
        QCOMPARE(m_keychain->add(item(identity(i), QByteArray::number(i))),
                 KeychainStatus::success);
    for (int i = 0; i < 40; ++i)
        QCOMPARE(value(identity(i)), QByteArray::number(i));
}

QByteArray KeychainContract::value(const KeychainIdentity &identity)
{
    return m_keychain->copyMatching(identity).valueData.value_or("nothing");
}

} // namespace quorvel::tests
