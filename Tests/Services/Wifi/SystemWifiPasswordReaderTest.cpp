#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"

#include "Platform/Wifi/FakeWifiClient.h"
#include "Platform/Wifi/WifiError.h"
#include "Services/Wifi/Passwords/FakeSystemWifiPasswordReader.h"
#include "Tests/Support/RunTask.h"

#include <QTest>

#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using Password = std::optional<QString>;

class SystemWifiPasswordReaderTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_client.emplace(); }

    void theStoredPasswordComesWithoutBlanksAroundIt_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("given");
        QTest::newRow("plain") << u"12345678"_s << u"12345678"_s;
        QTest::newRow("blanks inside") << u"pass  word"_s << u"pass  word"_s;
        QTest::newRow("blanks and lines around") << u" \t\r\npass word\n\n"_s << u"pass word"_s;
        QTest::newRow("a hard blank") << u"\u00a0password\u2003"_s << u"password"_s;
        QTest::newRow("a line inside") << u"pass\nword"_s << u"pass\nword"_s;
        QTest::newRow("Vietnamese") << u"mật khẩu ☕"_s << u"mật khẩu ☕"_s;
        QTest::newRow("quotes and backslashes") << u"\"a\\:b'"_s << u"\"a\\:b'"_s;
    }

    void theStoredPasswordComesWithoutBlanksAroundIt()
    {
        QFETCH(const QString, stored);
        QFETCH(const QString, given);
        m_client->storedPasswords.willSucceed(stored);
        QCOMPARE(read(u"Cafe"_s), given);
    }

    void aPasswordOfOnlyBlanksIsNone_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("blanks") << u"        "_s;
        QTest::newRow("lines") << u"\n\r\n"_s;
        QTest::newRow("hard blanks") << u"\u00a0\u3000"_s;
    }

    void aPasswordOfOnlyBlanksIsNone()
    {
        QFETCH(const QString, stored);
        m_client->storedPasswords.willSucceed(stored);
        QCOMPARE(read(u"Cafe"_s), std::nullopt);
    }

    void aNetworkNeverJoinedHasNone()
    {
        m_client->storedPasswords.willSucceed(std::nullopt);
        QCOMPARE(read(u"Cafe"_s), std::nullopt);
    }

    void noFailureReachesTheCaller()
    {
        for (int code = 0; code <= int(WifiError::Code::Failed); ++code) {
            m_client->storedPasswords.willFail(WifiError(WifiError::Code(code)));
            QCOMPARE(read(u"Cafe"_s), std::nullopt);
        }
    }

    void theNameIsAskedForUnchanged_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::newRow("blanks") << u"  Cafe 5G "_s;
        QTest::newRow("quotes") << u"\"Bob's\""_s;
        QTest::newRow("like an option") << u"--active"_s;
        QTest::newRow("lines and markup") << u"<b>\n$(id)"_s;
        QTest::newRow("empty") << u""_s;
    }

    void theNameIsAskedForUnchanged()
    {
        QFETCH(const QString, ssid);
        m_client->storedPasswords.willSucceed(std::nullopt);
        QCOMPARE(read(ssid), std::nullopt);
        QCOMPARE(m_client->storedPasswords.requests, std::vector{ssid});
    }

    void theWaitLastsAsLongAsTheUserTakes()
    {
        m_client->storedPasswords.willHold();
        SecurityCLIWifiPasswordReader reader(*m_client);
        auto task = reader.password(u"Cafe"_s);
        turnEventLoop();
        QVERIFY(!task.isReady());
        m_client->storedPasswords.willSucceed(u"12345678"_s);
        m_client->storedPasswords.release();
        QCOMPARE(runTask(std::move(task)), Password(u"12345678"_s));
    }

    void callsRunBesideEachOther()
    {
        m_client->storedPasswords.willHold();
        m_client->storedPasswords.willSucceed(u"first"_s);
        m_client->storedPasswords.willSucceed(u"second"_s);
        SecurityCLIWifiPasswordReader reader(*m_client);
        auto waiting = reader.password(u"Cafe"_s);
        QCOMPARE(read(u"Bar"_s), u"first"_s);
        m_client->storedPasswords.release();
        QCOMPARE(runTask(std::move(waiting)), Password(u"second"_s));
    }

    void theFakeAnswersWhatWasScripted()
    {
        FakeSystemWifiPasswordReader reader;
        reader.passwords.willSucceed(u"12345678"_s);
        QCOMPARE(runTask(reader.password(u"Cafe"_s)), Password(u"12345678"_s));
        QCOMPARE(reader.askedFor, QStringList(u"Cafe"_s));
    }

private:
    Password read(const QString &ssid)
    {
        SecurityCLIWifiPasswordReader reader(*m_client);
        return runTask(reader.password(ssid));
    }

    std::optional<FakeWifiClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SystemWifiPasswordReaderTest)
#include "SystemWifiPasswordReaderTest.moc"
